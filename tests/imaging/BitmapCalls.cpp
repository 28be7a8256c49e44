#include "imaging/BitmapCalls.h"

#include <algorithm>

namespace
{
constexpr char kUser[] = "user32.dll";
constexpr char kGdi[] = "gdi32.dll";

template<typename Handle>
std::function<void(Handle)> NamedAs(CallLog& log, const char* name)
{
    return [&log, name](Handle handle) { log.Name(handle, name); };
}

bool StartsWith(const std::string& line, const std::string& text)
{
    return line.compare(0, text.size(), text) == 0;
}
}

BitmapCalls::BitmapCalls(CallLog& log)
    : m_load(log, kUser, "LoadBitmapW", NamedAs<HBITMAP>(log, "loaded")),
      m_loadMapped(log, "comctl32.dll", "CreateMappedBitmap", NamedAs<HBITMAP>(log, "loaded")),
      m_copy(log, kUser, "CopyImage", NamedAs<HANDLE>(log, "copy")),
      m_query(kGdi, "GetObjectW",
              [this, &log](HANDLE object, int size, void* result)
              {
                  log.WriteCall("GetObjectW", object, size);
                  return m_query.CallOriginal(object, size, result);
              }),
      m_getDc(kUser, "GetDC",
              [this, &log](HWND window)
              {
                  log.WriteCall("GetDC", window);
                  const HDC dc = m_getDc.CallOriginal(window);
                  log.Name(dc, window == nullptr ? "screen" : "client");
                  return dc;
              }),
      m_releaseDc(log, kUser, "ReleaseDC"),
      m_createDc(log, kGdi, "CreateCompatibleDC",
                 [this, &log](HDC dc)
                 {
                     log.Name(dc, "dc" + std::to_string(++m_memoryDcs));
                     log.Name(::GetCurrentObject(dc, OBJ_BITMAP), "stock");
                 }),
      m_deleteDc(log, kGdi, "DeleteDC"),
      m_createBitmap(log, kGdi, "CreateCompatibleBitmap", NamedAs<HBITMAP>(log, "scaled")),
      m_select(log, kGdi, "SelectObject"), m_mode(log, kGdi, "SetStretchBltMode"),
      m_brushOrigin(log, kGdi, "SetBrushOrgEx"), m_stretch(log, kGdi, "StretchBlt"),
      m_delete(log, kGdi, "DeleteObject")
{
}

CallLog::LineList LinesBetween(const CallLog& log, const std::string& first, const std::string& last)
{
    const CallLog::LineList& lines = log.Lines();
    const auto begin = std::find_if(lines.begin(), lines.end(),
                                    [&](const std::string& line) { return StartsWith(line, first); });
    const auto end = std::find_if(lines.rbegin(), lines.rend(),
                                  [&](const std::string& line) { return StartsWith(line, last); });
    return begin < end.base() ? CallLog::LineList(begin, end.base()) : CallLog::LineList();
}
