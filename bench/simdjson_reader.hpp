// The second hand-written reader set beside ours: simdjson's DOM, then the same conversion into plain
// containers as RapidJSON's.
#pragma once

#include "containers.hpp"
#include "documents.hpp"

#include <memory>
#include <string>

namespace zq::bench {

/// The text that simdjson reads in place of text: the same JSON, except that every integer beyond 64
/// bits gets the fraction .0 (the DOM parser of simdjson 3.0 refuses such an integer, which our
/// writers write for a large whole double), followed by the spare bytes that simdjson reads past the
/// end of its input, so that the parser reads it in place instead of copying it at every parse.
std::string simdjson_text(std::string const& text);

/// simdjson's DOM parser, kept from one document to the next as a program that reads many documents
/// keeps it: its buffers are allocated at the first parse and reused by the later ones.
class SimdjsonReader {
public:
    SimdjsonReader();
    SimdjsonReader(SimdjsonReader const&) = delete;
    SimdjsonReader& operator=(SimdjsonReader const&) = delete;
    ~SimdjsonReader();

    /// The containers of document id, whose text is text: parsed into the DOM and converted exactly as
    /// read_with_rapidjson converts RapidJSON's.
    /// @throws std::runtime_error when simdjson rejects the text, and where read_with_rapidjson throws.
    Containers read(DocumentId id, std::string const& text);

    /// Parses text into the DOM and nothing more.
    /// @throws std::runtime_error when simdjson rejects the text.
    void parse(std::string const& text);

private:
    struct Parser;
    std::unique_ptr<Parser> parser_;
};

} // namespace zq::bench
