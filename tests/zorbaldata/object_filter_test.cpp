// The object type filter that the writers consult for each class.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

using namespace foundation::zorbaldata;

namespace {

std::string refusal(std::string const& className, std::string const& reason)
{
    return "Objects of class \"" + className + "\" may not be written: " + reason + ".";
}

class ObjectTypeFilter : public testing::Test {
protected:
    void TearDown() override { clearAllowedObjectClasses(); }
};

} // namespace

TEST_F(ObjectTypeFilter, AllowAllAcceptsEveryClass)
{
    for (std::string const name : {"", "pkg.Cls", "zorbal.mixin.Heterogeneous"})
        EXPECT_NO_THROW(detail::validateObjectTypeFilter(ObjectFilter::AllowAll, name));
}

TEST_F(ObjectTypeFilter, AllowListedAcceptsOnlyWhatTheHostAllowed)
{
    std::string const notListed = "the class is not on the list of allowed classes";
    EXPECT_THROW_WHAT(detail::validateObjectTypeFilter(ObjectFilter::AllowListed, "pkg.Cls"),
                      ObjectNotSupportedException, refusal("pkg.Cls", notListed));
    allowObjectClass("pkg.Cls");
    EXPECT_NO_THROW(detail::validateObjectTypeFilter(ObjectFilter::AllowListed, "pkg.Cls"));
    EXPECT_THROW_WHAT(detail::validateObjectTypeFilter(ObjectFilter::AllowListed, "pkg.Other"),
                      ObjectNotSupportedException, refusal("pkg.Other", notListed));
    disallowObjectClass("pkg.Cls");
    EXPECT_FALSE(isObjectClassAllowed("pkg.Cls"));
}

TEST_F(ObjectTypeFilter, DenyAllAndUnknownFiltersRefuseEveryClass)
{
    allowObjectClass("pkg.Cls");
    EXPECT_THROW_WHAT(detail::validateObjectTypeFilter(ObjectFilter::DenyAll, "pkg.Cls"), ObjectNotSupportedException,
                      refusal("pkg.Cls", "the object type filter allows no class"));
    EXPECT_THROW_WHAT(detail::validateObjectTypeFilter(static_cast<ObjectFilter>(3), ""), ObjectNotSupportedException,
                      refusal("", "the object type filter 3 is unknown"));
    try {
        detail::validateObjectTypeFilter(ObjectFilter::DenyAll, "pkg.Cls");
    } catch (ObjectNotSupportedException const& e) {
        EXPECT_EQ(e.getClassName(), "pkg.Cls");
    }
}
