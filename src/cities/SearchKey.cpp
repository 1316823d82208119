#include "cities/SearchKey.h"

#include <array>

#include "core/Text.h"

namespace zonara {

namespace {

// One row of consecutive code points and the base letter of each; '-' keeps
// the character (a letter without a plain base, or one spelled out below).
struct FoldRow {
    char16_t first;
    std::string_view bases;
};

// clang-format off
constexpr std::array foldRows = {
    //       code point   0123456789ABCDEF
    FoldRow{u'\u00C0', "aaaaaa-ceeeeiiii"},
    FoldRow{u'\u00D0', "dnooooo-ouuuuy--"},
    FoldRow{u'\u00E0', "aaaaaa-ceeeeiiii"},
    FoldRow{u'\u00F0', "dnooooo-ouuuuy-y"},
    FoldRow{u'\u0100', "aaaaaaccccccccdd"},
    FoldRow{u'\u0110', "ddeeeeeeeeeegggg"},
    FoldRow{u'\u0120', "gggghhhhiiiiiiii"},
    FoldRow{u'\u0130', "ii--jjkkklllllll"},
    FoldRow{u'\u0140', "lllnnnnnnnnnoooo"},
    FoldRow{u'\u0150', "oo--rrrrrrssssss"},
    FoldRow{u'\u0160', "ssttttttuuuuuuuu"},
    FoldRow{u'\u0170', "uuuuwwyyyzzzzzzs"},
    FoldRow{u'\u01A0', "oo-------------u"},
    FoldRow{u'\u01B0', "u"},
    FoldRow{u'\u0218', "sstt"},
    FoldRow{u'\u1E00', "aabbbbbbccdddddd"},
    FoldRow{u'\u1E10', "ddddeeeeeeeeeeff"},
    FoldRow{u'\u1E20', "gghhhhhhhhhhiiii"},
    FoldRow{u'\u1E30', "kkkkkkllllllllmm"},
    FoldRow{u'\u1E40', "mmmmnnnnnnnnoooo"},
    FoldRow{u'\u1E50', "oooopppprrrrrrrr"},
    FoldRow{u'\u1E60', "sssssssssstttttt"},
    FoldRow{u'\u1E70', "ttuuuuuuuuuuvvvv"},
    FoldRow{u'\u1E80', "wwwwwwwwwwxxxxyy"},
    FoldRow{u'\u1E90', "zzzzzzhtwyasss--"},
    FoldRow{u'\u1EA0', "aaaaaaaaaaaaaaaa"},
    FoldRow{u'\u1EB0', "aaaaaaaaeeeeeeee"},
    FoldRow{u'\u1EC0', "eeeeeeeeiiiioooo"},
    FoldRow{u'\u1ED0', "oooooooooooooooo"},
    FoldRow{u'\u1EE0', "oooouuuuuuuuuuuu"},
    FoldRow{u'\u1EF0', "uuyyyyyyyy------"},
};
// clang-format on

struct Spelling {
    char16_t code;
    std::string_view text;
};

constexpr std::array spellings = {
    Spelling{u'\u00C6', "ae"}, Spelling{u'\u00E6', "ae"}, Spelling{u'\u00DE', "th"},
    Spelling{u'\u00FE', "th"}, Spelling{u'\u00DF', "ss"}, Spelling{u'\u1E9E', "ss"},
    Spelling{u'\u0132', "ij"}, Spelling{u'\u0133', "ij"}, Spelling{u'\u0152', "oe"},
    Spelling{u'\u0153', "oe"},
};

bool isCombiningMark(char16_t c) {
    return c >= 0x0300 && c <= 0x036F;
}

bool isApostrophe(char16_t c) {
    return c == u'\'' || c == u'`' || c == u'\u2018' || c == u'\u2019' || c == u'\u02BC';
}

// What separates words: blanks, ASCII punctuation, dashes and the no-break space.
bool isSeparator(char16_t c) {
    if (c < 0x80) {
        return !((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9'));
    }
    return c == u'\u00A0' || (c >= u'\u2010' && c <= u'\u2015');
}

// The ASCII text a character folds to, or empty when it stands as it is.
std::string_view folded(char16_t c) {
    for (const Spelling& s : spellings) {
        if (s.code == c) {
            return s.text;
        }
    }
    for (const FoldRow& row : foldRows) {
        if (c >= row.first && c - row.first < char16_t(row.bases.size())) {
            const std::string_view base = row.bases.substr(c - row.first, 1);
            return base == "-" ? std::string_view() : base;
        }
    }
    return {};
}

} // namespace

std::string searchKey(std::string_view utf8) {
    std::u16string key;
    key.reserve(utf8.size());
    bool gap = false; // a separator stands between the last character kept and the next
    for (const char16_t c : toUtf16(utf8)) {
        if (isApostrophe(c) || isCombiningMark(c)) {
            continue;
        }
        if (isSeparator(c)) {
            gap = !key.empty();
            continue;
        }
        if (gap) {
            key += u' ';
            gap = false;
        }
        if (c >= u'A' && c <= u'Z') {
            key += char16_t(c - u'A' + u'a');
        } else if (c < 0x80) {
            key += c;
        } else if (const std::string_view base = folded(c); !base.empty()) {
            key.append(base.begin(), base.end());
        } else {
            key += c;
        }
    }
    return toUtf8(key);
}

} // namespace zonara
