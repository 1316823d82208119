#include "core/RecordCursor.h"

#include <cstdlib>
#include <cstring>

namespace zonara {

void RecordCursor::Attach(const char* viewBase, std::size_t viewLength) {
    base = viewBase;
    length = viewLength;
    position = 0;
    fieldLength = 0;
    buffer[0] = '\0';
}

bool RecordCursor::ReadField() {
    fieldLength = 0;
    std::size_t at = position;
    while (at < length) {
        const char c = base[at++];
        if (c == '\t' || c == '\r' || c == '\n') {
            break;
        }
        // A longer field is cut, never overrun; the cursor still moves past it.
        if (fieldLength < maxFieldBytes) {
            buffer[fieldLength++] = c;
        }
    }
    buffer[fieldLength] = '\0';
    position = std::uint32_t(at);
    return fieldLength > 0;
}

void RecordCursor::SkipLine() {
    if (position >= length) {
        position = std::uint32_t(length + 1);
        return;
    }
    const void* lf = std::memchr(base + position, '\n', length - position);
    position = std::uint32_t(lf != nullptr ? static_cast<const char*>(lf) - base + 1 : length + 1);
}

std::string_view RecordCursor::field() const {
    return {buffer.data(), ::strnlen(buffer.data(), fieldLength)};
}

std::int32_t RecordCursor::fieldAsInt() const {
    return std::int32_t(std::atoi(buffer.data()));
}

double RecordCursor::fieldAsDouble() const {
    return std::atof(buffer.data());
}

} // namespace zonara
