// What holds after the library was loaded while nobody wanted to know its types.
#pragma once

#include <gtest/gtest.h>

#include "load/loaded_library.h"
#include "registry/expected_schema.h"

inline void expectTypesWithoutAttributes(void* library) {
  for (auto const& expected : ExpectedSchema::types()) {
    SCOPED_TRACE(expected.name);
    Zol::ZolType* const type = Zol::ZolType::typeNode(fullName(expected));
    ASSERT_NE(type, nullptr);
    EXPECT_FALSE(type->attributeQIteratorConst());
    EXPECT_FALSE(type->constructorArgNameQIteratorConst());
    EXPECT_EQ(type->size(), 0U);
    if (expected.kind != ExpectedSchema::Kind::entity) continue;
    EXPECT_EQ(typeOfClass(library, expected.name), type);
    EXPECT_EQ(cachedAttr(library, expected.name, 153), nullptr);
    EXPECT_EQ(cachedAttr(library, expected.name, 154), nullptr);
    for (auto const& attr : expected.attrs) {
      EXPECT_EQ(cachedAttr(library, expected.name, attr.id), nullptr) << attr.name;
    }
  }
}
