// Char arrays, string arrays and enumeration arrays.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;
using OptionalText = zorbal::data::optional<std::u16string>;

} // namespace

TEST(CharArray, TextIsOneRow)
{
    CharArray const abc = factory.createCharArray(u"abc");
    EXPECT_EQ(abc.getDimensions(), (std::vector<unsigned long>{1, 3}));
    EXPECT_EQ(abc.toUTF16(), u"abc");
    CharArray const empty = factory.createCharArray(u"");
    EXPECT_EQ(empty.getDimensions(), (std::vector<unsigned long>{0, 0}));
    EXPECT_EQ(empty.toUTF16(), u"");
}

TEST(CharArray, TextOfAMatrixIsInStorageOrder)
{
    // Rows abc and def, filled as a reader does from the text "adbecf".
    CharArray matrix = factory.createCharArray(std::vector<unsigned long>{2, 3});
    std::u16string const text = u"adbecf";
    std::copy(text.begin(), text.end(), matrix.begin());
    EXPECT_EQ(matrix.toUTF16(), text);
    EXPECT_EQ(std::as_const(matrix)[1], u'd');
}

TEST(StringArray, MissingIsNotEmpty)
{
    TypedArray<OptionalText> strings = factory.createArray<OptionalText>({1, 3});
    EXPECT_FALSE(std::as_const(strings)[0].has_value());
    auto const range = getWritableElements<OptionalText>(strings);
    auto it = range.begin();
    detail::setElement<OptionalText>(it.getRef(), OptionalText(u"abc"));
    it.increment();
    detail::setElement<OptionalText>(it.getRef(), OptionalText(u""));

    std::vector<std::string> read;
    for (ZORBALStringReferenceExt const element : getReadOnlyElements<OptionalText>(strings)) {
        std::u16string const text = element.has_value() ? std::u16string(element) : u"<missing>";
        read.emplace_back(text.begin(), text.end());
    }
    EXPECT_EQ(read, (std::vector<std::string>{"abc", "", "<missing>"}));
    EXPECT_EQ(std::as_const(strings)[0].view(), u"abc");
    EXPECT_THROW_WHAT(std::u16string(std::as_const(strings)[2]), EMissingValue, "The string element is missing.");
}

// A string written from a view is a string of its own: the caller's buffer may change afterwards, and
// a copy of the array keeps what the original had when it was copied.
TEST(StringArray, TextFromAViewOutlivesItsBuffer)
{
    TypedArray<OptionalText> strings = factory.createArray<OptionalText>({1, 2});
    std::u16string buffer = u"a longer text than fits in a small string";
    getWritableElements<OptionalText>(strings).begin().getRef().setText(buffer);
    TypedArray<OptionalText> const copy = strings;
    buffer = u"changed";
    strings[0] = OptionalText(u"overwritten");
    EXPECT_EQ(copy[0].view(), u"a longer text than fits in a small string");
    EXPECT_EQ(strings[0].view(), u"overwritten");
    EXPECT_FALSE(copy[1].has_value());
}

// Arrays filled in order keep their strings together; every copy must still see them after the array
// that made them is gone, whichever copy writes next and whatever is overwritten.
TEST(StringArray, StringsOfAnArrayFilledInOrderOutliveItInItsCopies)
{
    auto const text = [](unsigned long i) {
        return std::u16string(i % 50, u'x') + u"\u00e9" + std::u16string(1, char16_t(u'0' + i % 10));
    };
    std::u16string const huge(200000, u'h');
    auto original = std::make_unique<TypedArray<OptionalText>>(factory.createArray<OptionalText>({1, 64}));
    auto const range = getWritableElements<OptionalText>(*original);
    unsigned long i = 0;
    for (auto it = range.begin(); i < 40; it.increment(), ++i)
        it.getRef().setText(i == 7 ? std::u16string_view(huge) : std::u16string_view(text(i)));
    TypedArray<OptionalText> copy = *original;
    copy[40] = OptionalText(u"after the copy");
    (*original)[41] = OptionalText(u"only in the original");
    TypedArray<OptionalText> const second = copy;
    original.reset();
    for (int round = 0; round < 3; ++round)
        copy[0] = OptionalText(u"overwritten " + std::u16string(1, char16_t(u'0' + round)));
    copy[7] = OptionalText();
    for (i = 1; i < 40; ++i)
        EXPECT_EQ(second[i].view(), i == 7 ? std::u16string_view(huge) : std::u16string_view(text(i))) << i;
    EXPECT_EQ(second[0].view(), text(0));
    EXPECT_EQ(copy[0].view(), u"overwritten 2");
    EXPECT_FALSE(copy[7].has_value());
    EXPECT_EQ(second[40].view(), u"after the copy");
    EXPECT_FALSE(second[41].has_value());
}

TEST(StringArray, EqualityTellsMissingFromEmpty)
{
    TypedArray<OptionalText> a = factory.createArray<OptionalText>({1, 1});
    TypedArray<OptionalText> b = factory.createArray<OptionalText>({1, 1});
    EXPECT_EQ(a, b);
    a[0] = OptionalText(u"");
    EXPECT_NE(a, b);
    b[0] = OptionalText(u"");
    EXPECT_EQ(a, b);
    a[0] = OptionalText();
    EXPECT_NE(a, b);
}

TEST(EnumArray, MembersAreNamesOfTheClass)
{
    EnumArray colors = factory.createEnumArray({1, 3}, "pkg.Color");
    EXPECT_EQ(colors.getClassName(), "pkg.Color");
    int i = 0;
    for (auto element : getWritableElements<Enumeration>(colors))
        if (i++ < 2)
            detail::setElement<std::string>(element, i == 1 ? "red" : "blue");

    std::vector<std::string> names;
    for (auto element : std::as_const(colors))
        names.push_back(detail::castToString(element));
    EXPECT_EQ(names, (std::vector<std::string>{"red", "blue", ""}));
    EXPECT_EQ(Enumeration(std::as_const(colors)[1]), Enumeration("blue"));
}

TEST(EnumArray, EqualityComparesClassAndMembers)
{
    EnumArray a = factory.createEnumArray({1, 2}, "pkg.Color");
    EnumArray b = factory.createEnumArray({1, 2}, "pkg.Color");
    a[0] = "red";
    b[0] = "red";
    EXPECT_EQ(a, b);
    b[1] = "red";
    EXPECT_NE(a, b);
    EXPECT_NE(factory.createEnumArray({1, 2}, "pkg.Color"), factory.createEnumArray({1, 2}, "pkg.Shade"));
}
