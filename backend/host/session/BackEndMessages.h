#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/context/RunContext.h"
#include "host/document/Document.h"
#include "host/xml/Document.h"

namespace hierfit::session {

/// A message that the model-building back-end left in the StatXML document.
struct BackEndMessage {
    std::string fKey;
    std::vector<std::string> fvParameters;  ///< none of them empty
    xml::Document::Node fNode;              ///< the `Message` element
    xml::Document::Node fBlock;             ///< the block of means that it is about, or none
};

/// The messages of the model and of its blocks of estimated means, in document order.
std::vector<BackEndMessage> ReadBackEndMessages(const xml::Document& statXml);

/// Adds to the diagnostics, in words and with their parameters, those messages that no table, chart or message of the
/// output shows. Gives how many of those added are about the model; they stand behind those about blocks of means.
std::size_t DiagnoseUnseenMessages(context::RunContext& context);

}  // namespace hierfit::session
