#include "app/cli/TransferProgress.h"

#include <algorithm>
#include <ostream>

namespace zonara {

void TransferProgress::begin(std::string fileName) {
    end();
    name = std::move(fileName);
    length.reset();
    bytes = 0;
    drawn.clear();
    open = true;
}

void TransferProgress::size(std::int64_t value) {
    if (!open)
        return;
    length = value;
    draw();
}

void TransferProgress::position(std::int64_t value) {
    if (!open || value <= bytes)
        return;
    bytes = value;
    draw();
}

void TransferProgress::end() {
    if (!open)
        return;
    if (!length && bytes == 0) {
        open = false;
        return;
    }
    if (terminal) {
        drawnStep = -2; // the last count is always shown
        draw();
        out << "\n" << std::flush;
    } else {
        out << plainLine() << "\n";
    }
    open = false;
}

std::string TransferProgress::barLine() const {
    if (!length)
        return name + "  " + std::to_string(bytes) + " bytes";
    const std::int64_t whole = std::max<std::int64_t>(*length, 0);
    const std::int64_t done = std::min(bytes, whole);
    const std::int64_t percent = whole == 0 ? 100 : done * 100 / whole;
    const std::int64_t filled = whole == 0 ? barWidth : done * barWidth / whole;
    std::string percentText = std::to_string(percent) + "%";
    percentText.insert(0, 4 - std::min<std::size_t>(4, percentText.size()), ' ');
    return name + " [" + std::string(std::size_t(filled), '#') +
           std::string(std::size_t(barWidth - filled), '-') + "] " + percentText + "  " +
           std::to_string(bytes) + " of " + std::to_string(*length) + " bytes";
}

std::string TransferProgress::plainLine() const {
    if (!length)
        return name + ": " + std::to_string(bytes) + " bytes";
    return name + ": " + std::to_string(bytes) + " of " + std::to_string(*length) + " bytes";
}

// Redrawn when the percentage changes (or every 64 kB of a file of unknown
// length), so a large file's thousands of chunks cost a hundred redraws.
void TransferProgress::draw() {
    if (!terminal)
        return;
    const std::int64_t step =
        length ? (*length > 0 ? std::min(bytes, *length) * 100 / *length : 100) : bytes >> 16;
    if (!drawn.empty() && step == drawnStep)
        return;
    const std::string line = barLine();
    const std::size_t clear = drawn.size() > line.size() ? drawn.size() - line.size() : 0;
    out << "\r" << line << std::string(clear, ' ') << std::flush;
    drawn = line;
    drawnStep = step;
}

} // namespace zonara
