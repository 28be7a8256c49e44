#pragma once

#include <windef.h>

#include <vector>

// Which variant a window gets, for some pictures and DPIs. scripts/lib/variant-table.awk makes the table in
// docs/guide/images.md of this one.

/// The DPIs that a picture is drawn for.
const std::vector<UINT> kDrawnDpis[] = {
    {96, 192},
    {96, 144, 192},
    {96, 120, 144, 192},
};

struct VariantRow
{
    UINT nDpi;           ///< of the window
    UINT nChosenDpis[3]; ///< of the variant, for each set in kDrawnDpis
};

constexpr VariantRow kVariantTable[] = {
    {72, {96, 96, 96}},     {96, {96, 96, 96}},     {97, {192, 144, 120}},  {108, {192, 144, 120}},
    {120, {192, 144, 120}}, {121, {192, 144, 144}}, {132, {192, 144, 144}}, {144, {192, 144, 144}},
    {145, {192, 192, 192}}, {168, {192, 192, 192}}, {192, {192, 192, 192}}, {193, {192, 192, 192}},
    {216, {192, 192, 192}}, {240, {192, 192, 192}}, {288, {192, 192, 192}}, {300, {192, 192, 192}},
};
