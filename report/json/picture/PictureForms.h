#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/document/Picture.h"
#include "report/json/JsonForms.h"

/// How the parts of a chart's picture stand in JSON: by the names of their members. What is empty, false, missing or
/// zero is left out wherever a reader of the picture can do without it.
namespace hierfit::report {

/// A number as pictures have them, or several.
template <typename Target>
struct Finite {
    Target& fTarget;
};
template <typename Target>
Finite(Target&) -> Finite<Target>;

void Read(JsonReader& in, Finite<double>& number);
void Read(JsonReader& in, Finite<std::optional<double>>& number);
void Read(JsonReader& in, Finite<std::vector<double>>& numbers);

void Write(JsonOutput& out, const document::PictureAxis& axis);
void Read(JsonReader& in, document::PictureAxis& axis);

void Write(JsonOutput& out, const document::PictureClasses& classes);
void Read(JsonReader& in, document::PictureClasses& classes);

void Write(JsonOutput& out, const document::PictureEmphasis& emphasis);
void Read(JsonReader& in, document::PictureEmphasis& emphasis);

void Write(JsonOutput& out, const document::PicturePanels& panels);
void Read(JsonReader& in, document::PicturePanels& panels);

void Write(JsonOutput& out, const document::PanelPlace& place);
void Read(JsonReader& in, document::PanelPlace& place);

void Write(JsonOutput& out, const document::HistogramPicture& histogram);
void Read(JsonReader& in, document::HistogramPicture& histogram);

/// What a kind of picture has of its own; the picture's object is begun and ended by the caller.
void WriteMembers(JsonOutput& out, const document::LevelsPicture& levels);
void WriteMembers(JsonOutput& out, const document::CirclePicture& circle);
void WriteMembers(JsonOutput& out, const document::NetworkPicture& network);
void WriteMembers(JsonOutput& out, const document::ScatterPicture& scatter);
void WriteMembers(JsonOutput& out, const document::HistogramPicture& histogram);

/// Reads a picture's object, of which `kind` is a part.
void ReadAs(JsonReader& in, document::Picture& picture, document::LevelsPicture& kind);
void ReadAs(JsonReader& in, document::Picture& picture, document::CirclePicture& kind);
void ReadAs(JsonReader& in, document::Picture& picture, document::NetworkPicture& kind);
void ReadAs(JsonReader& in, document::Picture& picture, document::ScatterPicture& kind);
void ReadAs(JsonReader& in, document::Picture& picture, document::HistogramPicture& kind);

void Read(JsonReader& in, document::ChartTable& table);

/// Leaves out what reads back alike without being written.
template <typename Value>
void WriteUnless(JsonOutput& out, std::string_view key, const Value& value, const Value& usual = Value()) {
    if (value != usual) WriteMember(out, key, value);
}

template <typename Value>
void WriteUnless(JsonOutput& out, std::string_view key, const std::optional<Value>& value) {
    if (value) WriteMember(out, key, *value);
}

template <typename Value>
void WriteUnlessEmpty(JsonOutput& out, std::string_view key, const std::vector<Value>& values,
                      JsonOutput::Layout layout) {
    if (!values.empty()) WriteList(out, key, values, layout);
}

/// Reads a picture's object: what every picture has, and the fields of its kind.
template <typename... Target>
void ReadPicture(JsonReader& in, document::Picture& picture, Field<Target>... fields) {
    in.ReadObject(fields..., Optional("title", picture.fTitle), Optional("subtitle", picture.fSubtitle),
                  Optional("caption", picture.fCaption), Optional("footnote", picture.fFootnote),
                  Optional("notes", picture.fvNotes), Optional("sentence", picture.fSentence),
                  Optional("tables", picture.fvTables));
}

/// One element of a list that the reader has just taken. What it counts in may stand behind it in the text, so it is
/// checked when all of the picture is there.
struct Element {
    const JsonReader& fIn;
    std::string_view fList;
    std::size_t fIndex;

    [[noreturn]] void Fail(std::string text, std::string_view key = {}) const;

    /// `index` is one of so many things.
    void CheckIndex(std::string_view key, int index, std::size_t size, std::string_view thing) const;

    void CheckPlace(std::string_view key, const document::PanelPlace& place,
                    const document::PicturePanels& panels) const;
};

/// Makes sure that none of the limits that are set lies above the other.
void CheckLimits(const JsonReader& in, const std::optional<double>& low, const std::optional<double>& high,
                 std::string_view highKey);

/// Makes sure that no element of a list belongs behind the next: `isBehind(first, second)` tells.
template <typename Value, typename IsBehind>
void CheckOrder(const JsonReader& in, std::string_view list, const std::vector<Value>& values, IsBehind isBehind,
                const char* failure) {
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (isBehind(values[i - 1], values[i])) Element{in, list, i}.Fail(failure);
    }
}

}  // namespace hierfit::report
