#pragma once

#include <list>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/document/Chart.h"
#include "host/document/Table.h"
#include "host/document/Text.h"

namespace hierfit::document {

struct Message {
    Text fText;
    int fShow;
    int fLevel;  ///< 1 information, 2 warning, 3 error

    bool operator==(const Message&) const = default;
};

struct Item;

struct Heading {
    Text fTitle;
    std::list<Item> fItems;  ///< a list, since builders keep hold of items

    bool operator==(const Heading& other) const;
};

struct Item {
    std::variant<Heading, Table, Chart, Message> fContent;
    std::string fName = {};  ///< that it keeps when others are left out; else empty, and its name comes from its place

    bool operator==(const Item&) const = default;
};

inline bool Heading::operator==(const Heading& other) const { return fTitle == other.fTitle && fItems == other.fItems; }

/// Indices in `Document::fvSources`.
inline constexpr int kPmmlSource = 0;
inline constexpr int kStatXmlSource = 1;

/// A place in one of the run's two documents. Lines and columns count from 1; columns count characters.
struct Place {
    int fSource;  ///< index in `Document::fvSources`
    int fLine;
    int fColumn;

    bool operator==(const Place&) const = default;
};

/// Something that the host noticed; no part of the procedure's output.
struct Diagnostic {
    int fLevel;  ///< 1 information, 2 warning, 3 error
    std::string fText;
    std::optional<Place> fPlace;

    bool operator==(const Diagnostic&) const = default;
};

/// Everything that one run left behind, in the order of issue. Renderings are functions of it.
struct Document {
    std::string fProducer;
    std::string fLanguage;
    std::string fTitle;
    std::vector<std::string> fvSources;  ///< last path component of the PMML and the StatXML document
    std::list<Item> fItems;
    std::vector<Diagnostic> fvDiagnostics;

    bool operator==(const Document&) const = default;
};

}  // namespace hierfit::document
