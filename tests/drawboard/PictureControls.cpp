#include "drawboard/PictureControls.h"

#include <stdexcept>
#include <string>

namespace
{
constexpr char kManifest[] =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="vxdpi.tests.controls" version="1.0.0.0" processorArchitecture="amd64"/>
  <dependency>
    <dependentAssembly>
      <assemblyIdentity type="win32" name="Microsoft.Windows.Common-Controls" version="6.0.0.0"
                        processorArchitecture="amd64" publicKeyToken="6595b64144ccf1df" language="*"/>
    </dependentAssembly>
  </dependency>
</assembly>
)";

std::wstring TemporaryFile()
{
    wchar_t folder[MAX_PATH + 1] = {};
    wchar_t file[MAX_PATH] = {};
    if (::GetTempPathW(MAX_PATH, folder) == 0 || ::GetTempFileNameW(folder, L"vxd", 0, file) == 0)
        throw std::runtime_error("no temporary file");
    return file;
}

void WriteManifest(const std::wstring& path)
{
    const HANDLE file =
        ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    const BOOL isWritten = ::WriteFile(file, kManifest, sizeof kManifest - 1, &written, nullptr);
    ::CloseHandle(file);
    if (!isWritten)
        throw std::runtime_error("the manifest can't be written");
}

HANDLE ContextOfManifest()
{
    const std::wstring path = TemporaryFile();
    WriteManifest(path);
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.lpSource = path.c_str();
    const HANDLE context = ::CreateActCtxW(&description);
    ::DeleteFileW(path.c_str());
    return context;
}
} // namespace

CommonControls6::CommonControls6() : m_context(ContextOfManifest())
{
    if (m_context == INVALID_HANDLE_VALUE || !::ActivateActCtx(m_context, &m_cookie))
        throw std::runtime_error("no controls of version 6");
}

CommonControls6::~CommonControls6()
{
    ::DeactivateActCtx(0, m_cookie);
    ::ReleaseActCtx(m_context);
}

PictureControl::PictureControl(DWORD style)
{
    if (!Create(L"", WS_CHILD | style, CRect(0, 0, 60, 40), m_parent.Object()))
        throw std::runtime_error("no picture control");
}

PictureControl::~PictureControl()
{
    const HBITMAP last = SetBitmap(nullptr);
    DestroyWindow();
    if (last != nullptr)
        ::DeleteObject(last);
}

HBITMAP PictureControl::Show(HBITMAP bitmap)
{
    SetBitmap(bitmap);
    return GetBitmap();
}

LRESULT RecordingPicture::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == STM_SETIMAGE)
        return AnswerToSet(wParam, lParam);
    if (message == STM_GETIMAGE)
        return AnswerToGet(wParam, lParam);
    return PictureControl::WindowProc(message, wParam, lParam);
}

LRESULT RecordingPicture::AnswerToSet(WPARAM wParam, LPARAM lParam)
{
    m_given = reinterpret_cast<HBITMAP>(lParam);
    m_log.WriteCall("STM_SETIMAGE", wParam, m_given);
    return m_answers ? reinterpret_cast<LRESULT>(m_answers->previous)
                     : PictureControl::WindowProc(STM_SETIMAGE, wParam, lParam);
}

LRESULT RecordingPicture::AnswerToGet(WPARAM wParam, LPARAM lParam)
{
    m_log.WriteCall("STM_GETIMAGE", wParam, lParam);
    return m_answers ? reinterpret_cast<LRESULT>(m_answers->shown(m_given))
                     : PictureControl::WindowProc(STM_GETIMAGE, wParam, lParam);
}
