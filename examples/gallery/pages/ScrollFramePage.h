#pragma once

#include "../GalleryPage.h"
#include "../Snapshot.h"
#include "ToolStrip.h"

/// Shows a dialog that is larger than the screen, in a frame that scrolls it.
class CScrollFramePage : public CGalleryPage
{
public:
    explicit CScrollFramePage(const CGalleryStyle& style);

    void UpdateDpi() override;
    void ShowScene(int nScene) override;
    bool SavePicture(int nScene, const CString& file) override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
    void PlaceChildren(const CSize& size, const CPoint& origin) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    void Play();
    void Compare();
    void OpenDialog();
    void OpenFrame();

    CToolStrip m_tools;
    std::vector<Snapshot> m_pictures; // of the frame: opened, scrolled, resized
    CString m_result;                 // of the last showing
    CBitmap m_comparison;             // of the dialog by itself and in a frame; no handle before the scene
};
