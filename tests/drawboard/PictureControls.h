#pragma once

#include <afxwin.h>

#include "foundation/FrameworkWindow.h"
#include "support/CallLog.h"

#include <functional>
#include <optional>
#include <utility>

// Picture controls of the kinds that a board is shown in.

// While it lives, the calling thread creates controls of version 6, as a program does whose manifest asks for
// it; such a picture control keeps a copy of a bitmap that is transparent somewhere. Without, a picture
// control keeps the bitmap that it is given.
class CommonControls6
{
public:
    CommonControls6();
    ~CommonControls6();

    CommonControls6(const CommonControls6&) = delete;
    CommonControls6& operator=(const CommonControls6&) = delete;

private:
    HANDLE m_context = INVALID_HANDLE_VALUE;
    ULONG_PTR m_cookie = 0;
};

// A real picture control in a hidden window. The bitmap that it still has at its end is deleted, as by a
// program that knows whose it is.
class PictureControl : public CStatic
{
public:
    // Client area of 60 x 40 pixels.
    explicit PictureControl(DWORD style = SS_BITMAP);
    ~PictureControl() override;

    // Sets a bitmap that the control owns from here on, and answers what it shows then.
    HBITMAP Show(HBITMAP bitmap);

private:
    FrameworkWindow m_parent;
};

// A picture control that writes down what it is told about its bitmap, and may give answers of the test's
// own.
class RecordingPicture : public PictureControl
{
public:
    struct Answers
    {
        HBITMAP previous;                            // to being given a bitmap
        std::function<HBITMAP(HBITMAP given)> shown; // to being asked for it
    };

    explicit RecordingPicture(CallLog& log) : m_log(log) {}
    RecordingPicture(CallLog& log, Answers answers) : m_log(log), m_answers(std::move(answers)) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT AnswerToSet(WPARAM wParam, LPARAM lParam);
    LRESULT AnswerToGet(WPARAM wParam, LPARAM lParam);

    CallLog& m_log;
    std::optional<Answers> m_answers;
    HBITMAP m_given = nullptr;
};
