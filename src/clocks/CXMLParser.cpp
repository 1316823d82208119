#include "clocks/CXMLParser.h"

#include <optional>

namespace zonara {

namespace {

// Comments and processing instructions are kept as nodes, so that the first
// child of an element is the same node a DOM reader would see.
constexpr unsigned parseOptions = pugi::parse_default | pugi::parse_comments | pugi::parse_pi;

// A compiled expression, or nothing when the expression is malformed or does
// not yield nodes. pugixml reports malformed expressions by throwing when it
// is built with exceptions; that is caught here at the library's edge.
std::optional<pugi::xpath_query> compile(std::string_view xpath) {
    const std::string text(xpath);
    std::optional<pugi::xpath_query> query;
#ifdef PUGIXML_NO_EXCEPTIONS
    query.emplace(text.c_str());
    if (!query->result())
        return std::nullopt;
#else
    try {
        query.emplace(text.c_str());
    } catch (const pugi::xpath_exception&) {
        return std::nullopt;
    }
#endif
    if (query->return_type() != pugi::xpath_type_node_set)
        return std::nullopt;
    return query;
}

// The value of a DOM node: character data, comments and processing
// instructions carry one, elements and documents carry none.
std::string nodeValue(const pugi::xml_node& node) {
    switch (node.type()) {
    case pugi::node_pcdata:
    case pugi::node_cdata:
    case pugi::node_comment:
    case pugi::node_pi:
        return node.value();
    default:
        return {};
    }
}

CXMLParser::Result select(const pugi::xml_node& context, std::string_view xpath, std::string& out) {
    const std::optional<pugi::xpath_query> query = compile(xpath);
    if (!query)
        return CXMLParser::Result::Error;
    const pugi::xpath_node hit = query->evaluate_node(context);
    if (!hit)
        return CXMLParser::Result::NoMatch;
    // The value is read from the node's first child: an attribute's text, or
    // whatever node an element starts with. An empty attribute or element has
    // no first child and leaves the output alone.
    if (const pugi::xml_attribute attribute = hit.attribute()) {
        if (*attribute.value() == '\0')
            return CXMLParser::Result::Empty;
        out = attribute.value();
        return CXMLParser::Result::Value;
    }
    const pugi::xml_node first = hit.node().first_child();
    if (!first)
        return CXMLParser::Result::Empty;
    out = nodeValue(first);
    return CXMLParser::Result::Value;
}

} // namespace

CXMLParser::~CXMLParser() {
    Close();
}

CXMLParser::Result CXMLParser::Create() {
    if (document) {
        Close();
        return Result::Error;
    }
    document = std::make_unique<pugi::xml_document>();
    return Result::Value;
}

CXMLParser::Result CXMLParser::Load(const std::filesystem::path& file) {
    if (!document)
        return Result::Error;
    const pugi::xml_parse_result parsed = document->load_file(file.c_str(), parseOptions);
    if (!parsed) {
        // A document that failed to load is empty, not half read.
        document->reset();
        return Result::Error;
    }
    return Result::Value;
}

CXMLParser::Result CXMLParser::GetValue(std::string_view xpath, std::string& out) const {
    if (!document)
        return Result::Error;
    return select(*document, xpath, out);
}

CXMLParser::Result CXMLParser::GetValueAt(const pugi::xml_node& context, std::string_view xpath,
                                          std::string& out) const {
    if (!document)
        return Result::Error;
    return select(context, xpath, out);
}

pugi::xpath_node_set CXMLParser::selectNodes(std::string_view xpath) const {
    if (!document)
        return {};
    const std::optional<pugi::xpath_query> query = compile(xpath);
    if (!query)
        return {};
    return query->evaluate_node_set(*document);
}

void CXMLParser::Close() {
    document.reset();
}

} // namespace zonara
