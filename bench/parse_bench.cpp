// Parse throughput of our JSON text reader and of RapidJSON, side by side on each benchmark document.
#include "documents.hpp"

#include <benchmark/benchmark.h>
#include <foundation/json/parser.hpp>
#include <foundation/json/value.hpp>
#include <rapidjson/document.h>

#include <cstdint>
#include <string>

namespace {

using zq::bench::DocumentId;

// The reader skips nothing around the value, and the documents have nothing around it, so a
// whole read is one that succeeds and ends at the end of the text.
void BM_ParseValue(benchmark::State& state, DocumentId id)
{
    std::string const& text = zq::bench::document(id);
    auto const end = text.cend();
    for (auto _ : state) {
        foundation::json::Value value;
        auto position = text.cbegin();
        if (foundation::json::parse_value(value, position, end, 0) != foundation::json::ParseOk || position != end) {
            state.SkipWithError("parse_value did not read the whole document");
            break;
        }
        benchmark::DoNotOptimize(value);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

// Full precision makes RapidJSON round every double exactly, as our reader does, so both do the
// same work. Building and freeing the DOM are both timed, as for our tree.
void BM_RapidJson(benchmark::State& state, DocumentId id)
{
    std::string const& text = zq::bench::document(id);
    for (auto _ : state) {
        rapidjson::Document document;
        document.Parse<rapidjson::kParseFullPrecisionFlag>(text.data(), text.size());
        if (document.HasParseError()) {
            state.SkipWithError("RapidJSON rejected the document");
            break;
        }
        benchmark::DoNotOptimize(document);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

} // namespace

// Ours and RapidJSON's registered in pairs, so the two readers of one document print side by side.
#define ZQ_PARSE_BENCHMARKS(doc)                                                                          \
    BENCHMARK_CAPTURE(BM_ParseValue, doc, DocumentId::doc)->Unit(benchmark::kMillisecond);                 \
    BENCHMARK_CAPTURE(BM_RapidJson, doc, DocumentId::doc)->Unit(benchmark::kMillisecond)

ZQ_PARSE_BENCHMARKS(large_double);
ZQ_PARSE_BENCHMARKS(large_int64);
ZQ_PARSE_BENCHMARKS(rows_double);
ZQ_PARSE_BENCHMARKS(strings);
ZQ_PARSE_BENCHMARKS(records);
ZQ_PARSE_BENCHMARKS(large_struct);
ZQ_PARSE_BENCHMARKS(large_cell);
ZQ_PARSE_BENCHMARKS(large_string);
