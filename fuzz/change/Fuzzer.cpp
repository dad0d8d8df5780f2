// What the fuzzer calls. It has inputs changed piece by piece most often, so that they stay well-formed and are read to
// their end.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>

#include "fuzz/Target.h"
#include "fuzz/change/Parts.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed);
extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                                 const std::uint8_t* data2, std::size_t size2, std::uint8_t* out,
                                                 std::size_t maxOutSize, unsigned int seed);

namespace hierfit::fuzz {

namespace {

std::string_view AsText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

class Mutator {
  public:
    explicit Mutator(unsigned int seed) : fRandom(seed) {}

    /// One change or a few, with pieces of the donor.
    Parts Change(Parts parts, const Parts& donor) {
        if (Below(16) == 0) parts.fMarkers.assign(parts.fMarkers.size(), static_cast<char>(Below(kMarkers)));
        do {
            const std::size_t part = PickPart(parts);
            ChangeText(*FormsOfInput()[part], parts.fvTexts[part], donor.fvTexts[part]);
        } while (Below(3) == 0);
        return parts;
    }

    std::size_t Below(std::size_t limit) { return fRandom() % limit; }

  private:
    /// A large part more often than a small one, but each now and then.
    std::size_t PickPart(const Parts& parts) {
        const std::size_t count = parts.fvTexts.size();
        if (Below(4) == 0) return Below(count);
        std::size_t all = 1;
        for (const std::string& text : parts.fvTexts) all += text.size();
        std::size_t part = 0;
        for (std::size_t at = Below(all); part + 1 < count && at > parts.fvTexts[part].size(); ++part) {
            at -= parts.fvTexts[part].size();
        }
        return part;
    }

    /// Some piece of some kind, or of that kind, or null.
    const Piece* Pick(const std::vector<Piece>& pieces, const Piece* like = nullptr) {
        if (pieces.empty()) return nullptr;
        const Piece::Kind kind = like ? like->fKind : pieces[Below(pieces.size())].fKind;
        const std::size_t first = Below(pieces.size());
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const Piece& piece = pieces[(first + i) % pieces.size()];
            if (piece.fKind == kind) return &piece;
        }
        return nullptr;
    }

    /// Kinds with few pieces come as often as those with many.
    const Piece* PickOfAnyKind(const std::vector<Piece>& pieces) {
        const Piece like{static_cast<Piece::Kind>(Below(static_cast<std::size_t>(Piece::Kind::Number) + 1)), 0, 0};
        const Piece* piece = Pick(pieces, &like);
        return piece ? piece : Pick(pieces);
    }

    void ChangeText(const Form& form, std::string& text, const std::string& donor) {
        const std::vector<Piece> pieces = form.fpList(text);
        const Piece* piece = PickOfAnyKind(pieces);
        if (!piece) return;
        const std::vector<Piece> others = form.fpList(donor);
        const Piece* other = Pick(others, piece);
        const std::string given = other ? donor.substr(other->fBegin, other->fEnd - other->fBegin) : std::string();
        if (piece->IsLeaf()) {
            ChangeLeaf(form, text, *piece, given);
        } else {
            ChangeBranch(text, *piece, given);
        }
    }

    /// Names and numbers are seldom anything once their bytes are changed, so they change places most often.
    void ChangeLeaf(const Form& form, std::string& text, const Piece& piece, std::string given) {
        const std::string old = text.substr(piece.fBegin, piece.fEnd - piece.fBegin);
        const bool isWord = piece.fKind == Piece::Kind::Word;
        if (isWord ? Below(3) > 0 : Below(16) == 0) {
            given = MutateBytes(Below(2) == 0 ? "" : old);
            if (isWord) given = form.fpEscape(given);
        }
        text.replace(piece.fBegin, old.size(), given);
    }

    static std::string MutateBytes(std::string bytes) {
        constexpr std::size_t kMostAdded = 32;
        const std::size_t size = bytes.size();
        bytes.resize(size + kMostAdded);
        bytes.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(bytes.data()), size, bytes.size()));
        return bytes;
    }

    void ChangeBranch(std::string& text, const Piece& piece, const std::string& given) {
        const std::string comma = piece.HasComma() ? "," : "";
        switch (Below(4)) {
            case 0:
                return Erase(text, piece);
            case 1: {
                const std::string copy = text.substr(piece.fBegin, piece.fEnd - piece.fBegin) + comma;
                for (std::size_t count = 1 + Below(4); count > 0; --count) text.insert(piece.fBegin, copy);
                return;
            }
            case 2:
                text.insert(piece.fBegin, given + comma);
                return;
            default:
                text.replace(piece.fBegin, piece.fEnd - piece.fBegin, given);
        }
    }

    static void Erase(std::string& text, const Piece& piece) {
        std::size_t begin = piece.fBegin;
        std::size_t end = piece.fEnd;
        if (piece.HasComma()) {
            const std::size_t behind = text.find_first_not_of(" \t\r\n", end);
            const std::size_t before = begin == 0 ? std::string::npos : text.find_last_not_of(" \t\r\n", begin - 1);
            if (behind != std::string::npos && text[behind] == ',') {
                end = behind + 1;
            } else if (before != std::string::npos && text[before] == ',') {
                begin = before;
            }
        }
        text.erase(begin, end - begin);
    }

    std::mt19937 fRandom;
};

/// Stores the input with some pieces changed, and gives its size. Stores nothing and gives 0 where the change is too
/// large for the place, and now and then without reason: then bytes may be changed that are no piece.
std::size_t Change(const std::uint8_t* data, std::size_t size, const std::uint8_t* donorData, std::size_t donorSize,
                   std::uint8_t* out, std::size_t maxSize, unsigned int seed) {
    Mutator mutator(seed);
    if (mutator.Below(16) == 0) return 0;
    const std::size_t count = FormsOfInput().size();
    const Parts donor = SplitInput(AsText(donorData, donorSize), count);
    const std::string input = JoinParts(mutator.Change(SplitInput(AsText(data, size), count), donor));
    if (input.size() > maxSize) return 0;
    std::memcpy(out, input.data(), input.size());
    return input.size();
}

}  // namespace

}  // namespace hierfit::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    hierfit::fuzz::RunInput({reinterpret_cast<const char*>(data), size});
    return 0;
}

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned int seed) {
    const std::size_t changed = hierfit::fuzz::Change(data, size, data, size, data, maxSize, seed);
    return changed > 0 ? changed : LLVMFuzzerMutate(data, size, maxSize);
}

std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1, const std::uint8_t* data2,
                                      std::size_t size2, std::uint8_t* out, std::size_t maxOutSize, unsigned int seed) {
    return hierfit::fuzz::Change(data1, size1, data2, size2, out, maxOutSize, seed);
}
