// Writing: our array to JSON text, beside RapidJSON's Writer and a hand-written writer writing the
// containers into the same shape.
#include "documents.hpp"
#include "fixtures.hpp"
#include "hand_writer.hpp"
#include "peak_memory.hpp"
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
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
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

template <class Writer>
void write_containers(Writer& writer, zq::bench::Containers const& data, ToJsonMode mode)
{
    if (mode == ToJsonMode::Large)
        zq::bench::write_large(writer, data);
    else if (auto const* matrix = std::get_if<zq::bench::Matrix<double>>(&data))
        zq::bench::write_rows(writer, *matrix);
    else
        throw std::logic_error("Only the double matrix is written in its small form");
}

std::string_view text_of(std::string const& text)
{
    return text;
}

std::string_view text_of(rapidjson::StringBuffer const& buffer)
{
    return {buffer.GetString(), buffer.GetSize()};
}

// What is known of one run of one writer once it has been checked.
struct Checked {
    std::size_t output_bytes;
    double peak_over_output;
};

// Every writer must give text that our reader reads back as the array it was given; that also shows
// that the containers hold what our array holds. Then the peak of the memory one write needs is
// measured in a child process, beside the text it leaves: the ratio is 1 for a writer that needs
// nothing but its output. Google Benchmark calls a benchmark several times while it sizes the run, so
// each run is checked at its first call only.
template <class Write>
Checked check(std::map<Run, Checked>& checked, Run run, Write const& write, char const* writer)
{
    if (auto const known = checked.find(run); known != checked.end())
        return known->second;
    std::size_t output_bytes = 0;
    {
        auto const written = write();
        std::string_view const text = text_of(written);
        output_bytes = text.size();
        foundation::zorbaldata::ArrayFactory factory;
        auto const read_back = foundation::zorbaldata::json::string_to_zorbaldata(std::string(text), factory);
        if (!(read_back == zq::bench::our_array(run.first)))
            throw std::runtime_error(std::string(writer) + " wrote text that reads back as another array");
    }
    std::size_t const peak = zq::bench::peak_growth([&] { benchmark::DoNotOptimize(write()); });
    return checked[run] = {output_bytes, static_cast<double>(peak) / static_cast<double>(output_bytes)};
}

// Times write, which returns its text in a string or a RapidJSON buffer; the text is made and freed in
// the timed loop.
template <class Write>
void time_writer(
    benchmark::State& state, std::map<Run, Checked>& checked, Run run, Write const& write, char const* writer)
{
    Checked known{};
    try {
        known = check(checked, run, write, writer);
    } catch (std::exception const& error) {
        state.SkipWithError(error.what());
        return;
    }
    for (auto _ : state) {
        auto const written = write();
        benchmark::DoNotOptimize(text_of(written).data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * known.output_bytes));
    state.counters["output_bytes"] = static_cast<double>(known.output_bytes);
    state.counters["peak_over_output"] = known.peak_over_output;
}

void BM_WriteArray(benchmark::State& state, DocumentId id, ToJsonMode mode)
{
    static std::map<Run, Checked> checked;
    time_writer(
        state, checked, { id, mode }, [&] { return write_ours(zq::bench::our_array(id), mode); },
        "Our writer");
}

void BM_RapidJsonWrite(benchmark::State& state, DocumentId id, ToJsonMode mode)
{
    static std::map<Run, Checked> checked;
    time_writer(state, checked, {id, mode}, [&] {
        rapidjson::StringBuffer buffer;
        zq::bench::JsonWriter writer(buffer);
        write_containers(writer, zq::bench::rapidjson_containers(id), mode);
        return buffer;
    }, "RapidJSON");
}

void BM_HandWrite(benchmark::State& state, DocumentId id, ToJsonMode mode)
{
    static std::map<Run, Checked> checked;
    time_writer(state, checked, {id, mode}, [&] {
        std::string text;
        zq::bench::HandWriter writer(text);
        write_containers(writer, zq::bench::rapidjson_containers(id), mode);
        return text;
    }, "The hand-written writer");
}

} // namespace

// Ours, RapidJSON's and the hand-written one registered together, so the writers of one array print
// side by side.
#define ZQ_WRITE_BENCHMARKS(doc, form, mode)                                                              \
    BENCHMARK_CAPTURE(BM_WriteArray, doc##_##form, DocumentId::doc, ToJsonMode::mode)                     \
        ->Unit(benchmark::kMillisecond);                                                                   \
    BENCHMARK_CAPTURE(BM_RapidJsonWrite, doc##_##form, DocumentId::doc, ToJsonMode::mode)                 \
        ->Unit(benchmark::kMillisecond);                                                                   \
    BENCHMARK_CAPTURE(BM_HandWrite, doc##_##form, DocumentId::doc, ToJsonMode::mode)                      \
        ->Unit(benchmark::kMillisecond)

ZQ_WRITE_BENCHMARKS(large_double, large, Large);
ZQ_WRITE_BENCHMARKS(large_int64, large, Large);
ZQ_WRITE_BENCHMARKS(rows_double, large, Large);
ZQ_WRITE_BENCHMARKS(rows_double, small, Small);
ZQ_WRITE_BENCHMARKS(large_struct, large, Large);
ZQ_WRITE_BENCHMARKS(large_cell, large, Large);
ZQ_WRITE_BENCHMARKS(large_string, large, Large);
