#include "Rendering.h"

#include "Terminal.h"
#include "host/session/Paths.h"

namespace hierfit::program {

report::RenderSettings MakeRenderSettings(const OutputOptions& output, bool isTerminal) {
    const session::Paths paths = session::FindPaths();
    return {output.fvOnly,
            {output.fStyle.value_or(report::style::StyleName::Plain), output.fDigits},
            {output.fIsStatic ? report::Scripts::No : report::Scripts::Yes, output.fTitle, output.fAuthor},
            ChooseTextOptions(output, isTerminal),
            output.fScale,
            {},
            output.fIsStandalone,
            paths.fModuleFolder,
            paths.LanguageFolder()};
}

ExitStatus StatusOf(report::RenderFault fault) {
    switch (fault) {
        case report::RenderFault::Usage:
            return kWrongUsage;
        case report::RenderFault::Missing:
            return kMissingPart;
        case report::RenderFault::Unmakeable:
            break;
    }
    return kUnwritable;
}

}  // namespace hierfit::program
