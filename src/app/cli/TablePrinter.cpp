#include "app/cli/TablePrinter.h"

#include <algorithm>
#include <cstdio>
#include <ostream>

namespace zonara {

std::string twoDecimals(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", double(value));
    return text;
}

std::string isoDate(int year, int month, int day) {
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
    return text;
}

std::string isoTime(int hour, int minute, int second) {
    char text[48];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", hour, minute, second);
    return text;
}

namespace {

// Display width in characters, counting each UTF-8 sequence once.
std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    for (const char c : text) {
        width += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    }
    return width;
}

} // namespace

void TablePrinter::print(std::ostream& out, bool tsv) const {
    if (tsv) {
        for (const auto& row : rows) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                out << (i == 0 ? "" : "\t") << row[i];
            }
            out << "\n";
        }
        return;
    }
    std::vector<std::size_t> widths(header.size(), 0);
    for (std::size_t i = 0; i < header.size(); ++i) {
        widths[i] = displayWidth(header[i]);
    }
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i) {
            widths[i] = std::max(widths[i], displayWidth(row[i]));
        }
    }
    auto printRow = [&](const std::vector<std::string>& row) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            if (i + 1 < row.size()) {
                line.append(widths[i] - displayWidth(row[i]) + 2, ' ');
            }
        }
        out << line << "\n";
    };
    printRow(header);
    for (const auto& row : rows) {
        printRow(row);
    }
}

} // namespace zonara
