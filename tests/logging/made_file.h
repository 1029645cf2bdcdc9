// Files that are made as they are read: for the tests of the reader.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/runtime/errors.h"

namespace cumeron {

// A file that is made as it is read: a text, so many bytes of a pattern, and another text. Any
// size, no memory.
class MadeFile : public InputFile {
public:
    MadeFile(std::string inFront, std::int64_t middle, const std::string& pattern,
             std::string atTheEnd)
        : front(std::move(inFront)), length(middle), behind(std::move(atTheEnd)) {
        for (std::size_t i = 0; i < Block; ++i) block += pattern[i % pattern.size()];
        period = static_cast<std::int64_t>(pattern.size());
    }
    std::size_t Read(char* bytes, std::size_t most) override {
        if (failsFrom >= 0 && position >= failsFrom) throw RuntimeError(57);
        const std::string_view piece = PieceAt(position).substr(0, most);
        piece.copy(bytes, piece.size());
        position += static_cast<std::int64_t>(piece.size());
        return piece.size();
    }
    std::int64_t Size() override { return SizeOf(front) + length + SizeOf(behind); }
    void Seek(std::int64_t to) override { position = to; }

    std::int64_t failsFrom = -1;

private:
    static constexpr std::size_t Block = 100'000;

    static std::int64_t SizeOf(const std::string& text) {
        return static_cast<std::int64_t>(text.size());
    }
    // What stands there up to the next seam.
    std::string_view PieceAt(std::int64_t at) const {
        const auto from = [](std::string_view text, std::int64_t offset) {
            return text.substr(static_cast<std::size_t>(offset));
        };
        if (at < SizeOf(front)) return from(front, at);
        at -= SizeOf(front);
        if (at < length) {
            return from(block, at % period).substr(0, static_cast<std::size_t>(length - at));
        }
        return from(behind, std::min(at - length, SizeOf(behind)));
    }

    std::string front;
    std::int64_t length;
    std::string behind, block;
    std::int64_t period, position = 0;
};

inline std::unique_ptr<MadeFile> FileAround(const std::string& front, std::int64_t length,
                                            const std::string& pattern, const std::string& behind) {
    return std::make_unique<MadeFile>(front, length, pattern, behind);
}

inline std::unique_ptr<MadeFile> FileOf(const std::string& text) {
    return FileAround(text, 0, "x", "");
}

}  // namespace cumeron
