// The field names of a struct array, in their order and ready to be looked up.
#include "field_table.hpp"

#include <foundation/zorbaldata/exceptions.hpp>

#include <algorithm>
#include <numeric>

namespace foundation::zorbaldata::detail {

namespace {

constexpr std::size_t longestFieldName = 2049;

bool isAsciiLetter(char c) noexcept
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isFieldCharacter(char c) noexcept
{
    return isAsciiLetter(c) || (c >= '0' && c <= '9') || c == '_';
}

} // namespace

bool isLegalFieldName(std::string_view name) noexcept
{
    return !name.empty() && name.size() <= longestFieldName && isAsciiLetter(name.front())
        && std::all_of(name.begin(), name.end(), isFieldCharacter);
}

FieldTable::FieldTable(std::vector<std::string> names)
{
    names_.reserve(names.size());
    for (auto& name : names) {
        if (!isLegalFieldName(name))
            throw EIllegalStructFieldName("\"" + name + "\" is not a legal field name: a field name begins with an "
                                          "ASCII letter, holds only ASCII letters, digits and underscores, and has "
                                          "at most 2049 of them.",
                                          name);
        names_.emplace_back(std::move(name));
    }
    byName_.resize(names_.size());
    std::iota(byName_.begin(), byName_.end(), 0UL);
    auto const nameOf = [this](unsigned long i) -> std::string const& { return names_[i].getString(); };
    std::sort(byName_.begin(), byName_.end(), [&](unsigned long a, unsigned long b) { return nameOf(a) < nameOf(b); });
    auto const twice = std::adjacent_find(byName_.begin(), byName_.end(),
                                          [&](unsigned long a, unsigned long b) { return nameOf(a) == nameOf(b); });
    if (twice != byName_.end())
        throw EIllegalStructFieldName("The field name \"" + nameOf(*twice) + "\" is given twice.", nameOf(*twice));
}

unsigned long FieldTable::indexOf(std::string_view name) const
{
    unsigned long const hint = lastFound_.load(std::memory_order_relaxed);
    if (hint < names_.size() && names_[hint].getString() == name)
        return hint;
    auto const at = std::lower_bound(byName_.begin(), byName_.end(), name,
                                     [this](unsigned long i, std::string_view n) { return names_[i].getString() < n; });
    if (at == byName_.end() || names_[*at].getString() != name)
        throw EIllegalStructFieldName("The struct array has no field called \"" + std::string(name) + "\".",
                                      std::string(name));
    lastFound_.store(*at, std::memory_order_relaxed);
    return *at;
}

bool FieldTable::sameNames(FieldTable const& other) const
{
    return size() == other.size()
        && std::equal(byName_.begin(), byName_.end(), other.byName_.begin(), [&](unsigned long a, unsigned long b) {
               return names_[a] == other.names_[b];
           });
}

} // namespace foundation::zorbaldata::detail
