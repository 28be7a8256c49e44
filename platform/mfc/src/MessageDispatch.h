#pragma once

#include <afxwin.h>

namespace vxmfc
{

/// Brings a window's messages to its object.
class MessageDispatch
{
public:
    /// Handles one message in the object's module state. The object may be gone afterwards.
    static LRESULT Run(CWnd* pWnd, const MSG& message);

    /// Settles an exception that a handler let through, and ends it.
    /// @return the message's result.
    static LRESULT Report(CException* pException, const MSG& message);
};

} // namespace vxmfc
