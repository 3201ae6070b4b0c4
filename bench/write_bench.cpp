// Writing: our array to JSON text, beside RapidJSON's Writer writing the containers into the same shape.
#include "documents.hpp"
#include "fixtures.hpp"
#include "rapidjson_writer.hpp"

#include <benchmark/benchmark.h>
#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>
#include <foundation/zorbaldata/object_filter.hpp>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>

namespace {

using foundation::zorbaljson::ToJsonMode;
using zq::bench::DocumentId;
using Run = std::pair<DocumentId, ToJsonMode>;

std::string write_ours(foundation::zorbaldata::Array const& array, ToJsonMode mode)
{
    return foundation::zorbaldata::json::zorbaldata_to_string(
        array, mode, foundation::zorbaljson::NanType::String, foundation::zorbaldata::ObjectFilter::AllowAll);
}

void write_rapidjson(rapidjson::StringBuffer& buffer, zq::bench::Containers const& data, ToJsonMode mode)
{
    zq::bench::JsonWriter writer(buffer);
    if (mode == ToJsonMode::Large)
        zq::bench::write_large(writer, data);
    else if (auto const* matrix = std::get_if<zq::bench::Matrix<double>>(&data))
        zq::bench::write_rows(writer, *matrix);
    else
        throw std::logic_error("Only the double matrix is written in its small form");
}

// Both writers must give text that our reader reads back as the array they were given; that also
// shows that RapidJSON's containers hold what our array holds. Google Benchmark calls a benchmark
// several times while it sizes the run, so each run is checked at its first call only.
template <class Write>
void require_round_trip(std::set<Run>& checked, Run run, Write write, char const* writer)
{
    if (checked.contains(run))
        return;
    foundation::zorbaldata::ArrayFactory factory;
    auto const read_back = foundation::zorbaldata::json::string_to_zorbaldata(write(), factory);
    if (!(read_back == zq::bench::our_array(run.first)))
        throw std::runtime_error(std::string(writer) + " wrote text that reads back as another array");
    checked.insert(run);
}

void report(benchmark::State& state, std::size_t output_bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * output_bytes));
    state.counters["output_bytes"] = static_cast<double>(output_bytes);
}

void BM_WriteArray(benchmark::State& state, DocumentId id, ToJsonMode mode)
{
    static std::set<Run> checked;
    foundation::zorbaldata::Array const* array = nullptr;
    try {
        array = &zq::bench::our_array(id);
        require_round_trip(checked, {id, mode}, [&] { return write_ours(*array, mode); }, "Our writer");
    } catch (std::exception const& error) {
        state.SkipWithError(error.what());
        return;
    }
    std::size_t output_bytes = 0;
    for (auto _ : state) {
        std::string text = write_ours(*array, mode);
        output_bytes = text.size();
        benchmark::DoNotOptimize(text);
    }
    report(state, output_bytes);
}

void BM_RapidJsonWrite(benchmark::State& state, DocumentId id, ToJsonMode mode)
{
    static std::set<Run> checked;
    zq::bench::Containers const* data = nullptr;
    try {
        data = &zq::bench::rapidjson_containers(id);
        auto const write = [&] {
            rapidjson::StringBuffer buffer;
            write_rapidjson(buffer, *data, mode);
            return std::string(buffer.GetString(), buffer.GetSize());
        };
        require_round_trip(checked, {id, mode}, write, "RapidJSON");
    } catch (std::exception const& error) {
        state.SkipWithError(error.what());
        return;
    }
    std::size_t output_bytes = 0;
    for (auto _ : state) {
        rapidjson::StringBuffer buffer;
        write_rapidjson(buffer, *data, mode);
        output_bytes = buffer.GetSize();
        benchmark::DoNotOptimize(buffer.GetString());
    }
    report(state, output_bytes);
}

} // namespace

// Ours and RapidJSON's registered in pairs, so the two writers of one array print side by side.
#define ZQ_WRITE_BENCHMARKS(doc, form, mode)                                                              \
    BENCHMARK_CAPTURE(BM_WriteArray, doc##_##form, DocumentId::doc, ToJsonMode::mode)                     \
        ->Unit(benchmark::kMillisecond);                                                                   \
    BENCHMARK_CAPTURE(BM_RapidJsonWrite, doc##_##form, DocumentId::doc, ToJsonMode::mode)                 \
        ->Unit(benchmark::kMillisecond)

ZQ_WRITE_BENCHMARKS(large_double, large, Large);
ZQ_WRITE_BENCHMARKS(large_int64, large, Large);
ZQ_WRITE_BENCHMARKS(rows_double, large, Large);
ZQ_WRITE_BENCHMARKS(rows_double, small, Small);
ZQ_WRITE_BENCHMARKS(large_struct, large, Large);
ZQ_WRITE_BENCHMARKS(large_cell, large, Large);
ZQ_WRITE_BENCHMARKS(large_string, large, Large);
