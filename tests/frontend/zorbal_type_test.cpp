// The lookup from a "zqtype" name to its array kind.
#include <foundation/zorbaljson/detail/zorbal_type.hpp>

#include "expect_throw.hpp"

#include <stdexcept>
#include <string>

namespace {

using namespace foundation::zorbaljson::detail;

// The numeric value of each kind is part of the table: dispatch switches on it.
TEST(ZorbalTypeForName, ResolvesEveryTypeNameAndRefusesEverythingElse)
{
    struct Named {
        char const* name;
        ZorbalType type;
        int value;
    };
    static constexpr Named named[] = {{"int8", ZorbalInt8, 0}, {"int16", ZorbalInt16, 1}, {"int32", ZorbalInt32, 2},
        {"int64", ZorbalInt64, 3}, {"uint8", ZorbalUInt8, 4}, {"uint16", ZorbalUInt16, 5}, {"uint32", ZorbalUInt32, 6},
        {"uint64", ZorbalUInt64, 7}, {"single", ZorbalSingle, 8}, {"double", ZorbalDouble, 9},
        {"logical", ZorbalLogical, 10}, {"char", ZorbalChar, 11}, {"cell", ZorbalCell, 12},
        {"struct", ZorbalStruct, 13}, {"string", ZorbalString, 16}};
    for (Named const& n : named) {
        EXPECT_EQ(zorbal_type_for_name(n.name), n.type) << n.name;
        EXPECT_EQ(static_cast<int>(n.type), n.value) << n.name;
    }
    EXPECT_EQ(static_cast<int>(ZorbalValueObject), 14);
    EXPECT_EQ(static_cast<int>(ZorbalEnum), 15);
    EXPECT_EQ(static_cast<int>(ZorbalHandleObject), 17);

    // Near misses of real names, and the words of the kinds that only a class name selects.
    std::string const others[] = {"", "Double", "DOUBLE", "double ", " double", "int", "float", "bool", "boolean",
        "complex", "sparse", "object", "handle", "enum", "My.Class", std::string("int8\0", 5)};
    for (std::string const& other : others)
        EXPECT_THROW_WHAT(zorbal_type_for_name(other), std::invalid_argument,
                          std::string(("Unknown zqtype name: " + other).c_str()));
}

} // namespace
