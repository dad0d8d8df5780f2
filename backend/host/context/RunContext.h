#pragma once

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/context/Settings.h"
#include "host/document/Document.h"

namespace hierfit {
class KEST_DataSource;
}

namespace hierfit::xml {
class Document;
}

namespace hierfit::context {

/// Finds the translation of a source text or key.
class Translator {
  public:
    virtual ~Translator() = default;

    /// The translation, or nothing when the catalogue lacks the key. Good as long as the translator lives.
    virtual std::optional<std::string_view> Find(std::string_view key) const = 0;
};

/// A look-up that answered false: what was looked for, and where.
struct Miss {
    enum class Kind {
        Attribute,  ///< an attribute of the element
        Element,    ///< an element at a path below the element
        Array,      ///< the tokens of the element's text
        Field,      ///< a name in the data source
        Value,      ///< a text as a value of a variable
    };
    Kind fKind;
    std::string fName;   ///< attribute, path, field name, or the value's text
    std::string fOwner;  ///< for a value: the variable's name
    unsigned fNode;      ///< the element in the document read last, the one touched last for fields and values
};

/// What one run shares: settings, language, paths, the document that it fills, and what the host noticed. The session
/// makes it; one thread-local pointer leads the static operations of the host's components to it. One thread at a time.
class RunContext {
  public:
    /// The share directory holds `template/` and `languages/`. The translator may be null and must outlive the context.
    RunContext(Settings settings, const Translator* translator, std::string shareDirectory);
    RunContext(const RunContext&) = delete;
    RunContext& operator=(const RunContext&) = delete;

    /// The context of the run under way on this thread. Throws std::logic_error when there is none.
    static RunContext& Current();

    /// The same, or null when there is none: values and documents serve without a run too.
    static RunContext* CurrentOrNull();

    /// Makes a context the thread's current one for as long as it lives; then the one before is current again.
    class Activation {
      public:
        explicit Activation(RunContext& context);
        ~Activation();
        Activation(const Activation&) = delete;
        Activation& operator=(const Activation&) = delete;

      private:
        RunContext* fpBefore;
    };

    const Settings& GetSettings() const { return fSettings; }
    const std::string& GetShareDirectory() const { return fShareDirectory; }

    /// The text in the run's language; the key itself where the catalogue lacks it.
    std::string_view Translate(std::string_view key) const;

    document::Document& GetDocument() { return fDocument; }

    /// Headings: the list of items of a heading is open as long as the pointer given here is shared by someone.
    void OpenHeading(const std::shared_ptr<std::list<document::Item>>& items);

    /// The items of the innermost open heading, else those of the document.
    std::list<document::Item>& InnermostItems();

    /// True when one more warning may be added: a run has at most 100. The first one that may not is told by a last
    /// warning, which this adds. The miss before it is forgotten either way.
    bool TakeRoomForWarning();

    /// Adds to the document's diagnostics and forgets the miss before it.
    void AddDiagnostic(int level, std::string text, std::optional<document::Place> place);

    /// The XML document read last, kept for the places of its elements; null before the first.
    void SetLastXml(std::shared_ptr<const xml::Document> document) { fpLastXml = std::move(document); }
    const std::shared_ptr<const xml::Document>& GetLastXml() const { return fpLastXml; }

    /// The data that the run is about, for as long as it is under way; null before they are read.
    const KEST_DataSource* GetDataSource() const { return fpDataSource; }
    void SetDataSource(const KEST_DataSource* source) { fpDataSource = source; }

    /// The level of confidence of the run's intervals, between 0 and 1, where the procedure has told it.
    std::optional<double> GetConfidenceLevel() const { return fConfidenceLevel; }
    void SetConfidenceLevel(double level) { fConfidenceLevel = level; }

    /// Remembers the element that was looked at last.
    void Touch(unsigned node) { fTouchedNode = node; }
    unsigned GetTouchedNode() const { return fTouchedNode; }

    /// Remembers a look-up that answered false. Cheap: many of them are no failure.
    void SetMiss(Miss::Kind kind, std::string_view name, std::string_view owner, unsigned node);
    const Miss* GetMiss() const { return fHasMiss ? &fMiss : nullptr; }

    /// State of the run's virtual machine and chart editor.
    bool fMachineRefuses = false;  ///< to start
    bool fMachineStarted = false;
    bool fEditorStarted = false;

    bool fIsMemoryShort = false;  ///< something is missing for it from the output

  private:
    Settings fSettings;
    const Translator* fpTranslator;
    std::string fShareDirectory;
    document::Document fDocument;
    std::vector<std::weak_ptr<std::list<document::Item>>> fvOpenHeadings;
    std::shared_ptr<const xml::Document> fpLastXml;
    const KEST_DataSource* fpDataSource = nullptr;
    std::optional<double> fConfidenceLevel;
    unsigned fTouchedNode = 0;
    Miss fMiss{};
    bool fHasMiss = false;
};

}  // namespace hierfit::context
