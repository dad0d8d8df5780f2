#include "host/XViZTemplate.h"

#include <exception>
#include <new>

#include "host/Diagnose.h"
#include "host/chart/TemplateBuilder.h"

namespace hierfit {

XViZTemplate::XViZTemplate() : fpBuilder(std::make_unique<chart::TemplateBuilder>()) {}

XViZTemplate::~XViZTemplate() = default;

void XViZTemplate::setTemplateInternalName(const std::string& name) { fpBuilder->SetName(name); }

void XViZTemplate::addLabel(int type, const std::string& text) {
    if (type == 0) fpBuilder->SetTitle(text);
}

void XViZTemplate::addVariable(const std::string& slot, const std::string& name, bool isFactor,
                               const std::string& title, const std::string& source, const KEST_Format* format,
                               const std::string& label, VARIABLE_TYPE, int, int, int, int, int, int, int) {
    fpBuilder->AddField({slot, name, isFactor, title, source, format, label});
}

void XViZTemplate::convert(std::string& xml, std::string& second) const {
    xml.clear();
    second.clear();
    try {
        xml = fpBuilder->Build();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        Diagnose(std::string("a chart template was left out: ") + error.what());
    }
}

}  // namespace hierfit
