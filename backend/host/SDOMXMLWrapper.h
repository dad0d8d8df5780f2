#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Diagnose.h"
#include "host/Export.h"

namespace hierfit {

namespace framework {
class XmlPool;
}

class SDOMXMLIterator;

/// One element of an XML document. The wrapper on which `LoadFromString` was called stands for the document element and
/// owns the document; elements and iterators that it hands out, directly or through others, belong to it and go with
/// it.
///
/// Names come without their namespace prefix. Paths are relative to this element, with steps parted by "/". The host
/// remembers the last look-up that answered false, so that a failed read can be told with its place.
class HIERFIT_EXPORT SDOMXMLWrapper {
  public:
    SDOMXMLWrapper();
    ~SDOMXMLWrapper();
    SDOMXMLWrapper(const SDOMXMLWrapper&) = delete;
    SDOMXMLWrapper& operator=(const SDOMXMLWrapper&) = delete;

    /// Parses a document and gives this wrapper. Null, with the reason among the host's diagnostics, when the text
    /// cannot be parsed.
    const SDOMXMLWrapper* LoadFromString(const std::string& text);

    /// True, with `*element` set to the first one in document order, when an element exists at the path. False
    /// otherwise, with `*element` unchanged. The last argument is true at every call.
    bool GetFirstElement(const std::string& path, SDOMXMLWrapper** element, bool relative) const;

    /// True, with `*iterator` set, when at least one element exists at the path: the last step is iterated below the
    /// first element that the steps before it lead to. False otherwise, with `*iterator` unchanged.
    bool GetElementIterator(const std::string& path, SDOMXMLIterator** iterator, bool relative) const;

    /// True, with the attribute's value in `text`, when the attribute exists. False, with `text` unchanged, otherwise.
    bool GetAttribute(const std::string& name, std::string& text) const;

    /// Splits the element's text into tokens parted by white space. A token in double quotes may hold blanks, and a
    /// quote written `\"` (PMML 4.4, Array). False, with `tokens` empty, when a quote is not closed.
    bool GetSimpleArray(std::vector<std::string>& tokens) const;

  private:
    friend class framework::XmlPool;
    friend void Diagnose(const SDOMXMLWrapper& element, const std::string& text);
    SDOMXMLWrapper(framework::XmlPool* pool, unsigned node);

    std::unique_ptr<framework::XmlPool> fpOwned;  ///< the document and all that was handed out; of the root alone
    framework::XmlPool* fpPool = nullptr;
    unsigned fNode = 0;
};

/// Walks the elements of one name below an element, in document order.
class HIERFIT_EXPORT SDOMXMLIterator {
  public:
    /// True and the next element, or false at the end.
    bool Next(SDOMXMLWrapper** element);

  private:
    friend class framework::XmlPool;
    SDOMXMLIterator(framework::XmlPool* pool, unsigned node) : fpPool(pool), fNode(node) {}

    framework::XmlPool* fpPool;
    unsigned fNode;  ///< the element that `Next` gives next
};

}  // namespace hierfit
