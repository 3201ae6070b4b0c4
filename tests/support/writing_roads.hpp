// The two roads from an array to JSON text under GoogleTest: every test that writes an array can
// demand that they agree.
#pragma once

#include "writing_difference.hpp"

#include <gtest/gtest.h>

#include <string>

namespace zq::test {

// Success when both roads give the same bytes, or throw the same class with the same text; indent 0
// is the compact text, any other the indented one.
inline ::testing::AssertionResult same_on_both_roads(foundation::zorbaldata::Array const& array,
    foundation::zorbaljson::ToJsonMode mode, foundation::zorbaljson::NanType nan,
    foundation::zorbaldata::ObjectFilter filter, unsigned indent = 0)
{
    std::string const difference = writing_difference(array, mode, nan, filter, indent);
    if (difference.empty())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << difference;
}

} // namespace zq::test
