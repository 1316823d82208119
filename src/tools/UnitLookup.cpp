#include "tools/UnitLookup.h"

#include <algorithm>

namespace zonara {

namespace {

// Case-blind ASCII, superscript digits as plain ones, the degree sign dropped.
std::string folded(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view rest = text.substr(i);
        if (rest.starts_with("²")) {
            out.push_back('2');
            i += std::string_view("²").size() - 1;
        } else if (rest.starts_with("³")) {
            out.push_back('3');
            i += std::string_view("³").size() - 1;
        } else if (rest.starts_with("°")) {
            i += std::string_view("°").size() - 1;
        } else {
            const char c = text[i];
            out.push_back(c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c);
        }
    }
    return out;
}

// "kilometers (km)" without its bracketed part: "kilometers".
std::string_view withoutBrackets(std::string_view text) {
    if (text.size() > 2 && text.front() == '(' && text.back() == ')')
        return text.substr(1, text.size() - 2);
    const auto open = text.rfind(" (");
    if (open != std::string_view::npos && text.back() == ')')
        return text.substr(0, open);
    return text;
}

bool unitNamed(const CTable& table, int unit, const std::string& name) {
    const std::string_view longName = table.UnitName(unit);
    const std::string_view suffix = table.UnitSuffix(unit);
    for (const std::string_view key :
         {longName, withoutBrackets(longName), suffix, withoutBrackets(suffix)})
        if (folded(key) == name)
            return true;
    return false;
}

struct Match {
    UnitCategory category;
    const CTable* table;
    int unit;
};

std::vector<Match> matches(std::span<const CategoryTable> tables, std::string_view name) {
    const std::string key = folded(name);
    std::vector<Match> found;
    for (const CategoryTable& entry : tables)
        for (int unit = 0; unit < entry.table->UnitCount(); ++unit)
            if (unitNamed(*entry.table, unit, key))
                found.push_back({entry.category, entry.table, unit});
    return found;
}

bool holds(const std::vector<Match>& list, UnitCategory category) {
    return std::any_of(list.begin(), list.end(),
                       [&](const Match& m) { return m.category == category; });
}

std::string joined(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) {
        if (!text.empty())
            text.append(", ");
        text.append(item);
    }
    return text;
}

std::string quoted(std::string_view text) {
    std::string out = "'";
    out.append(text);
    out.push_back('\'');
    return out;
}

} // namespace

std::vector<CategoryTable> categoryTables(const UnitTables& tables) {
    std::vector<CategoryTable> list;
    for (int i = 0; i < unitCategoryCount; ++i)
        list.push_back({UnitCategory(i), &tables.table(UnitCategory(i))});
    return list;
}

std::string LookupError::message() const {
    switch (failure) {
    case LookupFailure::UnknownUnit:
        return "unknown unit " + quoted(subject);
    case LookupFailure::UnknownCategory:
        return "unknown category " + quoted(subject) + " (one of: " + joined(candidates) + ")";
    case LookupFailure::NoCommonCategory:
        return "no category holds both of " + subject;
    case LookupFailure::AmbiguousCategory:
        return subject + " are in several categories (" + joined(candidates) +
               "): choose one with --category";
    case LookupFailure::AmbiguousUnit:
        return quoted(subject) + " could be: " + joined(candidates);
    }
    return {};
}

std::optional<UnitCategory> findCategory(std::string_view name) {
    const std::string key = folded(name);
    for (int i = 0; i < unitCategoryCount; ++i)
        if (folded(unitCategoryNames[std::size_t(i)]) == key)
            return UnitCategory(i);
    return std::nullopt;
}

ConversionLookup findConversion(std::span<const CategoryTable> tables, std::string_view from,
                                std::string_view to, std::optional<std::string_view> category) {
    std::vector<CategoryTable> narrowed(tables.begin(), tables.end());
    if (category) {
        const std::optional<UnitCategory> wanted = findCategory(*category);
        if (!wanted) {
            std::vector<std::string> names(unitCategoryNames.begin(), unitCategoryNames.end());
            return LookupError{LookupFailure::UnknownCategory, std::string(*category), names};
        }
        std::erase_if(narrowed, [&](const CategoryTable& t) { return t.category != *wanted; });
    }
    const std::vector<Match> fromMatches = matches(narrowed, from);
    if (fromMatches.empty())
        return LookupError{LookupFailure::UnknownUnit, std::string(from), {}};
    const std::vector<Match> toMatches = matches(narrowed, to);
    if (toMatches.empty())
        return LookupError{LookupFailure::UnknownUnit, std::string(to), {}};

    const std::string pairText = quoted(from) + " and " + quoted(to);
    std::vector<const CategoryTable*> common;
    for (const CategoryTable& t : narrowed)
        if (holds(fromMatches, t.category) && holds(toMatches, t.category))
            common.push_back(&t);
    if (common.empty())
        return LookupError{LookupFailure::NoCommonCategory, pairText, {}};
    if (common.size() > 1) {
        std::vector<std::string> names;
        for (const CategoryTable* t : common)
            names.emplace_back(categoryName(t->category));
        return LookupError{LookupFailure::AmbiguousCategory, pairText, names};
    }

    const UnitCategory chosen = common.front()->category;
    std::optional<int> units[2];
    const std::vector<Match>* lists[2] = {&fromMatches, &toMatches};
    const std::string_view names[2] = {from, to};
    for (int side = 0; side < 2; ++side) {
        std::vector<std::string> longNames;
        for (const Match& m : *lists[side]) {
            if (m.category != chosen)
                continue;
            units[side] = m.unit;
            longNames.emplace_back(m.table->UnitName(m.unit));
        }
        if (longNames.size() > 1)
            return LookupError{LookupFailure::AmbiguousUnit, std::string(names[side]), longNames};
    }
    return ConversionPair{chosen, *units[0], *units[1]};
}

} // namespace zonara
