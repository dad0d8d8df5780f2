#pragma once

#include <optional>
#include <string>

#include "host/session/Session.h"
#include "report/formats/RenderSettings.h"

/// What C calls hf_settings: how to run, and how to render.
struct hf_settings {
    std::string fPmmlName = "model.pmml";
    std::string fStatXmlName = "model.statxml";
    hierfit::session::Settings fRun;
    hierfit::report::RenderSettings fRender;
    std::optional<std::string> fError;  ///< of the last change
};

namespace hierfit::interface {

/// Sets an option by its long name, or says why it stays as it was.
std::optional<std::string> Set(hf_settings& settings, const std::string& key, const std::string& value);

}  // namespace hierfit::interface
