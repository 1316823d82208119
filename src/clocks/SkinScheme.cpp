#include "clocks/SkinScheme.h"

#include "clocks/CXMLParser.h"

namespace zonara {

namespace {

std::string elementPath(std::string_view element) {
    return std::string(schemePrefix) + "/" + std::string(element);
}

// One output string per attribute for a whole reading: a lookup that matches
// nothing leaves the string as the previous element left it.
struct SharedValues {
    std::string state;
    std::string fontSize;
    std::string fontWeight;
    std::string fontColour;
    std::string rect;
    std::string alignStyle; // "@align" and "@style" go through the same string
};

TextField readTextField(const CXMLParser& parser, std::string_view name, SharedValues& values) {
    TextField field;
    const std::string base = elementPath(name);
    if (found(parser.GetValue(base + "/@state", values.state)))
        field.shown = isShown(values.state);
    if (found(parser.GetValue(base + "/@font-size", values.fontSize)))
        field.fontSize = parseNumber(values.fontSize);
    if (found(parser.GetValue(base + "/@font-weight", values.fontWeight)))
        field.fontWeight = fontWeightOf(values.fontWeight);
    if (found(parser.GetValue(base + "/@font-color", values.fontColour)))
        field.colour = parseColor(values.fontColour);
    if (found(parser.GetValue(base + "/@rect", values.rect)))
        parseRect(values.rect, field.rect);
    if (found(parser.GetValue(base + "/@align", values.alignStyle)))
        field.align = alignOf(values.alignStyle);
    // A missing "@style" sees the alignment just read, which is never "long".
    if (found(parser.GetValue(base + "/@style", values.alignStyle)))
        field.shortStyle = isShortStyle(values.alignStyle);
    return field;
}

// The moon phase shares "@state" and "@rect" with the text fields, so a
// scheme without them follows the inettime field.
void readMoonPhase(const CXMLParser& parser, SharedValues& values, MoonPhaseLayout& moon) {
    moon.read = false;
    moon.loadImage = false;
    const std::string base = elementPath("moonphase");
    if (found(parser.GetValue(base + "/@state", values.state)) && !isShown(values.state))
        return;
    moon.read = true;
    std::string image;
    if (found(parser.GetValue(base + "/@img", image))) {
        moon.loadImage = true;
        moon.image = image;
    }
    if (found(parser.GetValue(base + "/@rect", values.rect)))
        parseRect(values.rect, moon.rect);
    std::string size;
    if (found(parser.GetValue(base + "/@size", size)))
        parseSize(size, moon.size);
}

} // namespace

SkinScheme readSkinScheme(const CXMLParser& parser, const SkinScheme& previous) {
    SkinScheme scheme;
    scheme.background = previous.background;
    scheme.loadBackground =
        found(parser.GetValue(elementPath("background") + "/@img", scheme.background));

    SharedValues values;
    for (std::size_t slot = 0; slot < textFieldCount; ++slot)
        scheme.fields[slot] = readTextField(parser, textFieldNames[slot], values);

    scheme.moonPhase = previous.moonPhase;
    readMoonPhase(parser, values, scheme.moonPhase);
    return scheme;
}

SkinScheme loadSkinScheme(const std::filesystem::path& file, const SkinScheme& previous) {
    CXMLParser parser;
    parser.Create();
    parser.Load(file);
    SkinScheme scheme = readSkinScheme(parser, previous);
    parser.Close();
    return scheme;
}

} // namespace zonara
