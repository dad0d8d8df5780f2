// Text to tree against expat alone, whose handlers do nothing, on the same bytes. The document repeats the estimated
// means and parameters of a real one until it has the megabytes asked for.

#include <benchmark/benchmark.h>
#include <expat.h>
#include <malloc.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <variant>

#include "host/xml/Document.h"

namespace {

std::string ReadExample() {
    std::ifstream stream(HIERFIT_EXAMPLES "/many-means/model.statxml", std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string MakeDocument(std::size_t megabytes) {
    const std::string example = ReadExample();
    const std::size_t body = example.find('<', example.find("<StatXML") + 1);
    const std::size_t end = example.rfind("</StatXML>");
    std::string text = example.substr(0, body);
    while (text.size() < megabytes << 20U) text.append(example, body, end - body);
    return text.append(example, end);
}

std::size_t HeapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

void ExpatAlone(benchmark::State& state) {
    const std::string text = MakeDocument(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                                  &XML_ParserFree);
        XML_SetElementHandler(
            parser.get(), [](void*, const char*, const char**) {}, [](void*, const char*) {});
        XML_SetCharacterDataHandler(parser.get(), [](void*, const char*, int) {});
        if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) != XML_STATUS_OK) {
            state.SkipWithError("the document is not well-formed");
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ExpatAlone)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

void TextToTree(benchmark::State& state) {
    const std::string text = MakeDocument(static_cast<std::size_t>(state.range(0)));
    std::size_t treeBytes = 0;
    for (auto _ : state) {
        const std::size_t before = HeapBytes();
        const auto result = hierfit::xml::Document::Parse(text);
        treeBytes = HeapBytes() - before;
        if (result.index() != 0) state.SkipWithError("the document is not read");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.counters["tree/text"] = static_cast<double>(treeBytes) / static_cast<double>(text.size());
}
BENCHMARK(TextToTree)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    mallopt(M_TRIM_THRESHOLD, 0);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
