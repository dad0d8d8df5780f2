#include "host/BpError.h"

#include "host/context/RunContext.h"

namespace hierfit {

void BpError(const BpCellText& text, BpErrorShow show, BpErrorLevel level) {
    context::RunContext::Current().InnermostItems().push_back(
        {document::Message{*text.GetText(), static_cast<int>(show), static_cast<int>(level)}});
}

}  // namespace hierfit
