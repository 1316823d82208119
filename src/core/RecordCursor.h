#pragma once
// Walks the tab-separated, CR LF-ended lines of a mapped file field by field.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zonara {

class RecordCursor {
  public:
    // Longer fields are cut to this many bytes; the cursor still moves past them.
    static constexpr std::size_t maxFieldBytes = 2047;

    void Attach(const char* base, std::size_t length);
    void Reset() { position = 0; }
    bool AtEnd() const { return position >= length; }

    // Reads up to the next TAB, CR or LF and moves one past it; true when the
    // field has at least one byte.
    bool ReadField();
    // Moves one past the next LF, or past the end.
    void SkipLine();

    // The field's text ends at its first NUL byte, as a C string would.
    std::string_view field() const;
    std::int32_t fieldAsInt() const;
    double fieldAsDouble() const;

    std::uint32_t position = 0;

  private:
    std::array<char, maxFieldBytes + 1> buffer{};
    std::size_t fieldLength = 0;
    const char* base = nullptr;
    std::size_t length = 0;
};

} // namespace zonara
