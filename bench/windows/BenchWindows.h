#pragma once

#include "WindowsByHand.h"

#include <vxdpi/Controls.h>
#include <vxdpi/Layout.h>

#include <memory>
#include <vector>

/// A window of the framework; children are destroyed with it.
class Frame
{
public:
    Frame();
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame();

    CWnd* Get();
    HWND Handle() const;

private:
    CWnd m_window;
};

/// A hidden frame with visible children in columns, beyond the frame's edge where there are many.
class Children
{
public:
    explicit Children(int count);

    CWnd* Parent();
    HWND ParentHandle() const;

    void AddTo(CDpiLayoutManager& manager) const;

private:
    Frame m_frame;
    std::vector<std::unique_ptr<CStatic>> m_children;
};

/// The controls in the order of a manager's record.
template<class Manager>
class OpenManager : public Manager
{
public:
    using Manager::Manager;

    std::vector<ByHand::Place> Places() const
    {
        std::vector<ByHand::Place> places;
        for (const auto& [hControl, info] : *this->m_pLayouts)
        {
            RECT rc = {};
            ::GetWindowRect(hControl, &rc);
            ::MapWindowPoints(nullptr, this->m_pParent->m_hWnd, reinterpret_cast<POINT*>(&rc), 2);
            places.push_back({hControl, static_cast<int>(info.nCtrlID), rc});
        }
        return places;
    }
};

/// Controls that a manager has laid out once.
template<class Manager>
class LaidOut
{
public:
    explicit LaidOut(int count) : m_children(count), m_manager(m_children.Parent())
    {
        m_children.AddTo(m_manager);
        m_manager.AdjustLayout();
        m_places = m_manager.Places();
    }

    void AdjustLayout() { m_manager.AdjustLayout(); }
    HWND ParentHandle() const { return m_children.ParentHandle(); }
    const std::vector<ByHand::Place>& Places() const { return m_places; }

private:
    Children m_children;
    OpenManager<Manager> m_manager;
    std::vector<ByHand::Place> m_places;
};

/// A list in report style, visible in a hidden frame.
class List
{
public:
    List();

    HWND Handle() const;

    /// One after the other, at the end.
    void InsertColumns(int count);
    /// All; what the list knows of their widths goes, too.
    void DeleteColumns();
    void ChangeDpi();

private:
    class OpenListCtrl : public CDPIAwareListCtrl
    {
    public:
        void ChangeDpi();
        void ForgetWidths();
    };

    Frame m_frame;
    OpenListCtrl m_list;
};
