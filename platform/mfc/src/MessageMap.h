#pragma once

#include <afxwin.h>

namespace vxmfc
{

/// What a message map is searched for. Code and ID belong to commands and notifications, else they are 0.
struct MessageKey
{
    UINT message;
    UINT code;
    UINT id;
};

/// @return the first entry for the key in the map or the maps of its base classes; null when there is none.
const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* pMap, const MessageKey& key);

} // namespace vxmfc
