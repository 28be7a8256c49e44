#include "Pictures.h"

void AddVariants(CDpiAwarePng& picture, UINT nId96, UINT nId144, UINT nId192)
{
    picture.AddResourceForDpi(96, nId96, {});
    picture.AddResourceForDpi(144, nId144, {});
    picture.AddResourceForDpi(192, nId192, {});
}
