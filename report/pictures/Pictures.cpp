#include "report/pictures/Pictures.h"

#include <dlfcn.h>

#include <memory>
#include <variant>

#include "report/html/Assets.h"
#include "report/html/Contents.h"
#include "report/html/SafeSvg.h"
#include "report/pictures/PictureModule.h"

namespace hierfit::report {

namespace {

using Engine = std::unique_ptr<HierfitPictures, void (*)(HierfitPictures*)>;

/// The module, and the engine that it runs.
class Drawer {
  public:
    /// Tells why there are no pictures; nothing when all is well.
    std::string Open(const std::string& path) {
        // The engine has threads of its own, so the module is never unloaded.
        void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        if (!module) return dlerror();
        const auto get = reinterpret_cast<HierfitGetPictureFunctions>(dlsym(module, kHierfitGetPictureFunctions));
        if (!get) return path + " does not export " + kHierfitGetPictureFunctions;
        fpFunctions = get();
        // The script is followed by a zero byte in the program.
        fpEngine = Engine(fpFunctions->fpOpen(html::ChartScript().fText.data()), fpFunctions->fpClose);
        return fpEngine ? "" : path + ": the script engine does not start";
    }

    /// Empty when it cannot be drawn.
    std::string Draw(const std::string& view) {
        std::size_t size = 0;
        const char* svg = fpFunctions->fpDraw(fpEngine.get(), view.c_str(), &size);
        return svg ? html::MakeSafeSvg({svg, size}, {}).value_or("") : "";
    }

  private:
    const HierfitPictureFunctions* fpFunctions = nullptr;
    Engine fpEngine{nullptr, nullptr};
};

std::vector<const document::Chart*> ListCharts(const document::Document& document, std::vector<std::string>& names) {
    std::vector<const document::Chart*> charts;
    for (html::Entry& entry : html::ListEntries(document)) {
        const auto* chart = std::get_if<document::Chart>(&entry.fpItem->fContent);
        if (!chart) continue;
        charts.push_back(chart);
        names.push_back(std::move(entry.fAnchor));
    }
    return charts;
}

}  // namespace

Pictures MakePictures(const document::Document& document, const std::string& module) {
    Pictures pictures;
    const std::vector<const document::Chart*> charts = ListCharts(document, pictures.fvNames);
    pictures.fvSvg.resize(charts.size());
    std::unique_ptr<Drawer> drawer;
    for (std::size_t i = 0; i < charts.size(); ++i) {
        if (charts[i]->fView.empty()) continue;
        if (!drawer) {
            drawer = std::make_unique<Drawer>();
            const std::string failure = drawer->Open(module);
            if (!failure.empty()) {
                pictures.fvFailures.push_back("no pictures of charts: " + failure);
                return pictures;
            }
        }
        pictures.fvSvg[i] = drawer->Draw(charts[i]->fView);
        if (pictures.fvSvg[i].empty()) pictures.fvFailures.push_back(pictures.fvNames[i] + ": cannot be drawn");
    }
    return pictures;
}

}  // namespace hierfit::report
