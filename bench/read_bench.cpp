// Reading end to end: JSON text to our array, beside RapidJSON's DOM copied into plain containers.
#include "documents.hpp"
#include "fixtures.hpp"
#include "rapidjson_reader.hpp"

#include <benchmark/benchmark.h>
#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace {

using foundation::zorbaldata::ArrayType;
using zq::bench::DocumentId;

struct Shape {
    ArrayType type;
    std::vector<unsigned long> dimensions;
};

// What each document must read as; a reader that accepts a document but makes something else of it
// would otherwise be timed doing the wrong work.
Shape expected_shape(DocumentId id)
{
    switch (id) {
    case DocumentId::large_double: return {ArrayType::DOUBLE, {1, 3'000'000}};
    case DocumentId::large_int64: return {ArrayType::INT64, {1, 3'000'000}};
    case DocumentId::rows_double: return {ArrayType::DOUBLE, {1'000, 3'000}};
    case DocumentId::large_string: return {ArrayType::STRING, {1, 1'000'000}};
    case DocumentId::large_struct: return {ArrayType::STRUCT, {100'000, 1}};
    case DocumentId::large_cell: return {ArrayType::CELL, {1, 200'000}};
    case DocumentId::strings:
    case DocumentId::records: break;
    }
    return {ArrayType::DOUBLE, {}};
}

// The array is built and freed inside the timed loop, as RapidJSON's DOM and containers are.
void BM_ReadArray(benchmark::State& state, DocumentId id)
{
    std::string const& text = zq::bench::document(id);
    try {
        foundation::zorbaldata::Array const& array = zq::bench::our_array(id);
        Shape const shape = expected_shape(id);
        if (array.getType() != shape.type || array.getDimensions() != shape.dimensions) {
            state.SkipWithError("The document reads as an array of another type or size");
            return;
        }
    } catch (std::exception const& error) {
        state.SkipWithError(error.what());
        return;
    }
    foundation::zorbaldata::ArrayFactory factory;
    for (auto _ : state) {
        auto array = foundation::zorbaldata::json::string_to_zorbaldata(text, factory);
        benchmark::DoNotOptimize(array);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void BM_RapidJsonRead(benchmark::State& state, DocumentId id)
{
    std::string const& text = zq::bench::document(id);
    try {
        zq::bench::rapidjson_containers(id);
    } catch (std::exception const& error) {
        state.SkipWithError(error.what());
        return;
    }
    for (auto _ : state) {
        zq::bench::Containers containers = zq::bench::read_with_rapidjson(id, text);
        benchmark::DoNotOptimize(containers);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

} // namespace

// Ours and RapidJSON's registered in pairs, so the two readers of one document print side by side.
#define ZQ_READ_BENCHMARKS(doc)                                                                           \
    BENCHMARK_CAPTURE(BM_ReadArray, doc, DocumentId::doc)->Unit(benchmark::kMillisecond);                 \
    BENCHMARK_CAPTURE(BM_RapidJsonRead, doc, DocumentId::doc)->Unit(benchmark::kMillisecond)

ZQ_READ_BENCHMARKS(large_double);
ZQ_READ_BENCHMARKS(large_int64);
ZQ_READ_BENCHMARKS(rows_double);
ZQ_READ_BENCHMARKS(large_struct);
ZQ_READ_BENCHMARKS(large_cell);
ZQ_READ_BENCHMARKS(large_string);
