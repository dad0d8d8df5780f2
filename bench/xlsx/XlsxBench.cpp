// A workbook of one table over its number of cells, and the library alone with as many cells. "items_per_second" counts
// cells, "bytes_per_second" the file.

#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <filesystem>
#include <string>

#include "GeneratedDocument.h"
#include "report/xlsx/Workbook.h"
#include "report/xlsx/book/LoadBook.h"

namespace {

namespace xlsx = hierfit::report::xlsx;

constexpr int kColumns = 10;

void Count(benchmark::State& state, std::size_t bytes) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.SetComplexityN(state.range(0));
}

void MakeWorkbook(benchmark::State& state) {
    const auto document = bench::GenerateDocument(static_cast<int>(state.range(0)));
    const auto module = xlsx::LoadBook(HIERFIT_XLSX);
    const xlsx::WorkbookSettings settings{std::get<xlsx::HierfitMakeBook>(module), {}, 1, {}, {}};
    std::size_t bytes = 0;
    for (auto _ : state) bytes = xlsx::MakeWorkbook(document, settings).fBytes.value().size();
    Count(state, bytes);
}

/// Numbers under a format, with a label ahead of each row, written row by row to a file.
void WriteByLibrary(benchmark::State& state) {
    const std::string path = (std::filesystem::temp_directory_path() / "hierfit_bench.xlsx").string();
    for (auto _ : state) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        lxw_workbook* book = workbook_new_opt(path.c_str(), &options);
        lxw_worksheet* sheet = workbook_add_worksheet(book, "Sheet");
        lxw_format* format = workbook_add_format(book);
        format_set_num_format(format, "0.000");
        for (lxw_row_t row = 0; row < static_cast<lxw_row_t>(state.range(0) / kColumns); ++row) {
            worksheet_write_string(sheet, row, 0, "Label of the row", nullptr);
            for (lxw_col_t column = 1; column <= kColumns; ++column) {
                worksheet_write_number(sheet, row, column, (row + 1) / (column + 0.7), format);
            }
        }
        workbook_close(book);
    }
    Count(state, std::filesystem::file_size(path));
    std::filesystem::remove(path);
}

void SetSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

BENCHMARK(WriteByLibrary)->Apply(SetSizes);
BENCHMARK(MakeWorkbook)->Apply(SetSizes);

}  // namespace

BENCHMARK_MAIN();
