#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include <benchmark/benchmark.h>

#include "clocks/CXMLParser.h"
#include "clocks/SkinScheme.h"
#include "clocks/SkinValue.h"

namespace zonara {
namespace {

// A scheme with every key the full clock and its clocks read.
std::string fullScheme() {
    std::string xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<scheme>\n<mainclock>\n"
                      "  <background img=\"background_480x640.jpg\"/>\n";
    int top = 10;
    for (std::string_view name : textFieldNames) {
        xml += "  <" + std::string(name) +
               " state=\"show\" font-size=\"12\" font-weight=\"bold\" font-color=\"#FFCC00\""
               " rect=\"10," +
               std::to_string(top) + ",470," + std::to_string(top + 30) +
               "\" align=\"center\" style=\"long\"/>\n";
        top += 34;
    }
    xml += "  <clock state=\"show\" rect=\"140,200,340,400\" hand-center=\"100,100\""
           " radius=\"90\">\n"
           "    <hourhand lengthscale=\"60\" widthscale=\"8\" fill-color=\"#FFFFFF\""
           " outline-color=\"#000000\"/>\n"
           "    <minutehand lengthscale=\"90\" widthscale=\"5\" fill-color=\"#FFFFFF\""
           " outline-color=\"#000000\"/>\n"
           "    <secondhand outline-color=\"#FF0000\"/>\n"
           "  </clock>\n"
           "  <dig_clock state=\"show\" rect=\"10,500,200,540\" fillOn=\"#00FF00\""
           " fillOff=\"#003300\" borderOn=\"#00AA00\" borderOff=\"#002200\""
           " backFill=\"#000000\"/>\n"
           "  <moonphase state=\"show\" img=\"moon.gif\" rect=\"400,20,432,52\""
           " size=\"32,32\"/>\n"
           "</mainclock>\n</scheme>\n";
    return xml;
}

class SchemeFile {
  public:
    SchemeFile() {
        const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
        dir =
            std::filesystem::temp_directory_path() / ("zonara-skinbench-" + std::to_string(stamp));
        std::filesystem::create_directories(dir);
        std::ofstream(file()) << fullScheme();
    }
    ~SchemeFile() {
        std::error_code ignored;
        std::filesystem::remove_all(dir, ignored);
    }
    std::filesystem::path file() const { return dir / "default.xml_480x640.xml"; }

  private:
    std::filesystem::path dir;
};

// Create, Load, the background, 13 fields and the moon phase, Close: what
// applying a skin costs the full clock apart from its pictures.
void BM_LoadSkinScheme(benchmark::State& state) {
    const SchemeFile scheme;
    const SkinScheme previous;
    for (auto _ : state) {
        SkinScheme read = loadSkinScheme(scheme.file(), previous);
        benchmark::DoNotOptimize(read);
    }
}
BENCHMARK(BM_LoadSkinScheme);

// The lookups alone on a document already loaded.
void BM_ReadSkinScheme(benchmark::State& state) {
    const SchemeFile scheme;
    CXMLParser parser;
    parser.Create();
    parser.Load(scheme.file());
    const SkinScheme previous;
    for (auto _ : state) {
        SkinScheme read = readSkinScheme(parser, previous);
        benchmark::DoNotOptimize(read);
    }
}
BENCHMARK(BM_ReadSkinScheme);

void BM_ParseValues(benchmark::State& state) {
    for (auto _ : state) {
        SkinRect rect;
        parseRect("10,200,470,230", rect);
        benchmark::DoNotOptimize(rect);
        benchmark::DoNotOptimize(parseColor("#FFCC00"));
        benchmark::DoNotOptimize(parseNumber(" 12"));
    }
}
BENCHMARK(BM_ParseValues);

} // namespace
} // namespace zonara
