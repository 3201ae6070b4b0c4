// Writing Values as JSON text, with an explicit stack instead of recursion.
#include <foundation/json/serialize.hpp>

#include <foundation/json/detail/text_format.hpp>
#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>

#include <vector>

namespace foundation::json {

SerializeError::~SerializeError() = default;

namespace {

using namespace detail;

class Writer {
public:
    Writer(std::string& out, unsigned indent) : out_(out), indent_(indent) {}

    void write(Value const& root)
    {
        begin(root);
        while (!open_.empty()) {
            Open& top = open_.back();
            if (top.next_element != top.end_element) {
                separate(top);
                begin(*top.next_element++);
            } else if (top.next_member != top.end_member) {
                separate(top);
                write_string(out_, top.next_member->first);
                out_ += indent_ ? ": " : ":";
                begin((top.next_member++)->second);
            } else {
                char const close = top.is_object ? '}' : ']';
                open_.pop_back();
                line_break();
                out_ += close;
            }
        }
    }

private:
    // A container whose opening is written; for an array only the element range is in use,
    // for an object only the member range.
    struct Open {
        bool is_object;
        bool first;
        Value const* next_element;
        Value const* end_element;
        Object::const_iterator next_member;
        Object::const_iterator end_member;
    };

    // Writes value whole if it has no elements or members, else its opening, leaving it open.
    void begin(Value const& value)
    {
        switch (value.which()) {
        case traits<Undefined>::which:
        case traits<Null>::which: out_ += "null"; break;
        case traits<bool>::which: out_ += json_cast<bool>(value) ? "true" : "false"; break;
        case traits<double>::which: write_double(out_, json_cast<double>(value)); break;
        case traits<std::string>::which: write_string(out_, json_cast<std::string>(value)); break;
        case traits<float>::which: write_float(out_, json_cast<float>(value)); break;
        case traits<long long>::which: write_integer(out_, json_cast<long long>(value)); break;
        case traits<unsigned long long>::which: write_integer(out_, json_cast<unsigned long long>(value)); break;
        case traits<Array>::which: {
            Array const& array = json_cast<Array>(value);
            if (array.empty()) {
                out_ += "[]";
                break;
            }
            out_ += '[';
            open_.push_back({false, true, array.data(), array.data() + array.size(), {}, {}});
            break;
        }
        case traits<Object>::which: {
            Object const& object = json_cast<Object>(value);
            if (object.empty()) {
                out_ += "{}";
                break;
            }
            out_ += '{';
            open_.push_back({true, true, nullptr, nullptr, object.begin(), object.end()});
            break;
        }
        }
    }

    void separate(Open& top)
    {
        if (!top.first)
            out_ += ',';
        top.first = false;
        line_break();
    }

    void line_break()
    {
        if (indent_ == 0)
            return;
        out_ += '\n';
        out_.append(open_.size() * indent_, ' ');
    }

    std::string& out_;
    unsigned const indent_;
    std::vector<Open> open_;
};

} // namespace

std::string serialize(Value const& value, unsigned indent)
{
    std::string text;
    Writer(text, indent).write(value);
    return text;
}

std::string serialize(Value const& value)
{
    return serialize(value, 0);
}

} // namespace foundation::json
