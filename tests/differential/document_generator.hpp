// Random JSON documents in the notation, seeded, for tests that compare two ways of reading them.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace zq::test {

/// Makes documents of every array kind in both forms, with the notation's keys in any order, repeated
/// keys, numbers in every spelling the grammar allows, strings with escapes and bytes that are no UTF-8,
/// and sizes and data that agree or not. The same seed gives the same documents.
class DocumentGenerator {
public:
    explicit DocumentGenerator(std::uint64_t seed) : engine_(seed) {}

    /// A document that is JSON text, most of them meaningful in the notation.
    std::string document();

    /// A document spoilt: cut short, or with one byte changed.
    std::string broken_document();

private:
    std::size_t below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(engine_); }
    bool chance(unsigned in) { return below(in) == 0; }

    void value(std::string& out, int depth);
    void number(std::string& out);
    void string(std::string& out);
    void list(std::string& out, std::size_t count, int depth, void (DocumentGenerator::*element)(std::string&, int));
    void large_form(std::string& out, int depth);
    void small_form(std::string& out);
    void number_element(std::string& out, int) { number(out); }
    void string_element(std::string& out, int) { string(out); }
    void value_element(std::string& out, int depth) { value(out, depth); }
    void object_element(std::string& out, int depth);

    std::mt19937_64 engine_;
};

} // namespace zq::test
