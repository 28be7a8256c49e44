#pragma once

#include "imaging/RegistryFields.h"

#include <vxdpi/Images.h>

// The fields of a CDpiAwareBitmap and of a CDpiAwareIcon in their order, which is part of the library's
// binary interface.
struct BitmapFields
{
    UINT nColorMapFlags;
    COLORMAP* pColorMap;
    int nColorMapSize;
    UINT nCurrentDpi;
    UINT nResourceId;
    RegistryFields resources;
    CBitmap* pSource;
    CSize sizeBase;
    CSize sizeCurrent;
};

struct IconFields
{
    UINT nLargestSize;
    UINT nSmallestSize;
    std::vector<UINT>* pCurrentSizes;
    RegistryFields resources;
};

static_assert(sizeof(CDpiAwareBitmap) == sizeof(CBitmap) + sizeof(BitmapFields));
static_assert(sizeof(CDpiAwareIcon) == sizeof(IconFields));

inline BitmapFields& BitmapFieldsOf(CDpiAwareBitmap& bitmap)
{
    return *reinterpret_cast<BitmapFields*>(reinterpret_cast<char*>(&bitmap) + sizeof(CBitmap));
}

inline IconFields& IconFieldsOf(CDpiAwareIcon& icon)
{
    return reinterpret_cast<IconFields&>(icon);
}

// Sets a field for the length of a scope.
template<typename Field>
class ChangedField
{
public:
    ChangedField(Field& field, Field value) : m_field(field), m_kept(field) { m_field = value; }

    ~ChangedField() { m_field = m_kept; }

    ChangedField(const ChangedField&) = delete;
    ChangedField& operator=(const ChangedField&) = delete;

private:
    Field& m_field;
    const Field m_kept;
};
