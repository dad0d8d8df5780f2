#pragma once

#include <initializer_list>
#include <limits>
#include <string_view>

#include "host/plausible/figures/Figure.h"
#include "host/xml/Document.h"

namespace hierfit::plausible {

using Node = xml::Document::Node;

/// The element at a path below a node, or `kNone`.
Node FindPath(const xml::Document& document, Node node, std::initializer_list<std::string_view> path);

/// The figure in an attribute; nothing where there is none.
MaybeFigure FigureOf(const xml::Document& document, Node node, std::string_view attribute);

/// Whether an element has a `Message` of that key.
bool HasMessage(const xml::Document& document, Node node, std::string_view key);

/// Values that a figure can have, both ends included.
struct Range {
    double fLeast = -std::numeric_limits<double>::infinity();
    double fMost = std::numeric_limits<double>::infinity();
};

/// What the rules know about the model. The document must outlive it.
struct Model {
    explicit Model(const xml::Document& document);

    /// What observed values of the target can be; anything for a categorical one.
    Range ObservedValues() const;

    /// What means can be by the distribution and, for a normal one, by the link function.
    Range Means() const;

    bool IsCategorical() const;

    const xml::Document& fDocument;
    Node fSettings;     ///< BuildSettings
    Node fDiagnostics;  ///< ModelDiagnostics
    Node fSummary;      ///< TrainingSummary
    std::string_view fDistribution;
    std::string_view fLink;
    std::string_view fAdjustment;
    MaybeFigure fLevel;  ///< of confidence
    bool fUseTrials = false;
    bool fHasTrialsField = false;
};

}  // namespace hierfit::plausible
