// The parts of Value that walk whole trees: freeing, copying and comparing, none recursive.
#include <foundation/json/value.hpp>

#include <iterator>
#include <vector>

namespace foundation::json {

// The way down is remembered in the tree itself: the slot that held a child keeps, while the
// child is being freed, the link to its own container's parent. So freeing takes no memory and
// cannot fail, however deep the tree. Containers are emptied from their last element back;
// one without nested containers is freed in a single pass.
void Value::release_tree() noexcept
{
    Tag current_tag = tag_;
    Scalar current = scalar_;
    Tag parent_tag = undefined_tag;
    Scalar parent{};
    for (;;) {
        Value* child = nullptr;
        if (current_tag == array_tag) {
            Array& array = *current.array;
            while (!array.empty() && !array.back().owns_tree())
                array.pop_back();
            if (!array.empty())
                child = &array.back();
        } else {
            Object& object = *current.object;
            while (!object.empty() && !std::prev(object.end())->second.owns_tree())
                object.erase(std::prev(object.end()));
            if (!object.empty())
                child = &std::prev(object.end())->second;
        }
        if (child) {
            Tag const child_tag = child->tag_;
            Scalar const child_scalar = child->scalar_;
            child->tag_ = parent_tag;
            child->scalar_ = parent;
            parent_tag = current_tag;
            parent = current;
            current_tag = child_tag;
            current = child_scalar;
            continue;
        }
        if (current_tag == array_tag)
            delete current.array;
        else
            delete current.object;
        if (parent_tag == undefined_tag)
            return;
        current_tag = parent_tag;
        current = parent;
        Value& link = current_tag == array_tag ? current.array->back()
                                               : std::prev(current.object->end())->second;
        parent_tag = link.tag_;
        parent = link.scalar_;
        link.tag_ = undefined_tag;
    }
}

void Value::copy_tree_from(Value const& source)
{
    // A container copied without its nested containers yet: those get empty ones to fill later.
    struct Pending {
        Tag tag;
        Scalar from;
        Scalar to;
    };
    std::vector<Pending> pending;
    auto const empty_like = [](Value const& container) {
        return container.tag_ == array_tag ? Value(Array()) : Value(Object());
    };
    auto const copy_level = [&](Pending const& level) {
        if (level.tag == array_tag) {
            Array const& from = *level.from.array;
            Array& to = *level.to.array;
            to.reserve(from.size());
            for (Value const& element : from) {
                if (element.owns_tree()) {
                    to.push_back(empty_like(element));
                    pending.push_back({element.tag_, element.scalar_, to.back().scalar_});
                } else {
                    to.push_back(element);
                }
            }
        } else {
            Object& to = *level.to.object;
            for (auto const& [key, member] : *level.from.object) {
                if (member.owns_tree()) {
                    auto const added = to.emplace_hint(to.end(), key, empty_like(member));
                    pending.push_back({member.tag_, member.scalar_, added->second.scalar_});
                } else {
                    to.emplace_hint(to.end(), key, member);
                }
            }
        }
    };

    // The copy stays a valid tree at every step, so a failure frees whatever was built.
    Value copy = empty_like(source);
    copy_level({source.tag_, source.scalar_, copy.scalar_});
    while (!pending.empty()) {
        Pending const level = pending.back();
        pending.pop_back();
        copy_level(level);
    }
    take(copy);
}

bool Value::equal_trees(Value const& a, Value const& b)
{
    // Two containers of the same kind whose nested containers have not been compared yet.
    struct Pending {
        Tag tag;
        Scalar a;
        Scalar b;
    };
    std::vector<Pending> pending;
    auto const equal_values = [&pending](Value const& x, Value const& y) {
        if (x.tag_ != y.tag_)
            return false;
        if (!x.owns_tree())
            return equal_leaves(x, y);
        pending.push_back({x.tag_, x.scalar_, y.scalar_});
        return true;
    };
    auto const equal_level = [&](Pending const& level) {
        if (level.tag == array_tag) {
            Array const& x = *level.a.array;
            Array const& y = *level.b.array;
            if (x.size() != y.size())
                return false;
            for (std::size_t i = 0; i != x.size(); ++i)
                if (!equal_values(x[i], y[i]))
                    return false;
            return true;
        }
        Object const& x = *level.a.object;
        Object const& y = *level.b.object;
        if (x.size() != y.size())
            return false;
        for (auto i = x.begin(), j = y.begin(); i != x.end(); ++i, ++j)
            if (i->first != j->first || !equal_values(i->second, j->second))
                return false;
        return true;
    };

    if (!equal_level({a.tag_, a.scalar_, b.scalar_}))
        return false;
    while (!pending.empty()) {
        Pending const level = pending.back();
        pending.pop_back();
        if (!equal_level(level))
            return false;
    }
    return true;
}

} // namespace foundation::json
