// Checks that a statement throws an exception of an exact class with an exact what() text.
#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <typeinfo>

namespace zq::test {

// Runs f and returns the exception it threw, as an exception_ptr; null if it returned.
template <typename F>
std::exception_ptr capture_exception(F&& f)
{
    try {
        f();
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

// True when f throws exactly E (not a subclass) with what() equal to text.
template <typename E, typename F>
::testing::AssertionResult throws_exactly(F&& f, std::string const& text)
{
    try {
        f();
    } catch (E const& e) {
        if (typeid(e) == typeid(E) && text == e.what())
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "threw " << typeid(e).name() << " with \"" << e.what() << '"';
    } catch (std::exception const& e) {
        return ::testing::AssertionFailure() << "threw " << typeid(e).name() << " with \"" << e.what() << '"';
    } catch (...) {
        return ::testing::AssertionFailure() << "threw something that is no std::exception";
    }
    return ::testing::AssertionFailure() << "nothing was thrown";
}

} // namespace zq::test

// EXPECT_THROW_WHAT(statement, Class, "exact text")
#define EXPECT_THROW_WHAT(statement, E, text) \
    EXPECT_TRUE(::zq::test::throws_exactly<E>([&] { (void)(statement); }, (text)))
