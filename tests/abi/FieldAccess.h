#pragma once

#include <cstddef>
#include <tuple>

#include <gtest/gtest.h>

// Where the fields of a class are, private ones too, compared with a mirror: a class with the same bases
// and the same fields in their order, all public. The compiler lays out both, so that the comparison holds
// for each compiler and for each standard library.

/// Makes private fields known under a tag: access is not checked in an explicit instantiation.
///
///     struct NameOfTag
///     {
///         friend constexpr auto FieldsOf(NameOfTag);
///     };
///     template struct Reveal<NameOfTag, &CSome::m_first, &CSome::m_second>;
///
/// FieldsOf(NameOfTag()) is then the tuple of the pointers.
template<class Tag, auto... fields>
struct Reveal
{
    friend constexpr auto FieldsOf(Tag) { return std::make_tuple(fields...); }
};

template<class Class, class Field>
std::size_t OffsetOf(Field Class::*field)
{
    alignas(Class) static unsigned char memory[sizeof(Class)];
    auto* const object = reinterpret_cast<Class*>(memory);
    return static_cast<std::size_t>(reinterpret_cast<unsigned char*>(&(object->*field)) - memory);
}

template<class Class, class Mirror, class Field, class MirrorField>
void ExpectSameField(Field Class::*field, MirrorField Mirror::*mirrorField)
{
    static_assert(std::is_same_v<Field, MirrorField>);
    static_assert(sizeof(Class) == sizeof(Mirror) && alignof(Class) == alignof(Mirror));
    EXPECT_EQ(OffsetOf(field), OffsetOf(mirrorField));
}

/// Expects fields to be where those of the mirror are.
/// @param fields,mirrorFields  tuples of pointers to members.
template<class... Fields, class... MirrorFields>
void ExpectSameFields(const std::tuple<Fields...>& fields, const std::tuple<MirrorFields...>& mirrorFields)
{
    static_assert(sizeof...(Fields) == sizeof...(MirrorFields));
    std::apply(
        [&](auto... field) {
            std::apply([&](auto... mirrorField) { (ExpectSameField(field, mirrorField), ...); },
                       mirrorFields);
        },
        fields);
}
