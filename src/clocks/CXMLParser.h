#pragma once
// One XML document, looked up with XPath single-node and node-list selection.

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace zonara {

class CXMLParser {
public:
    // The four outcomes of a lookup. Callers treat everything but Error as
    // found: a path that matches nothing, or an empty value, leaves the output
    // as it was, and skins inherit values from field to field through that.
    enum class Result { Error, NoMatch, Empty, Value };

    CXMLParser() = default;
    ~CXMLParser();
    CXMLParser(const CXMLParser&) = delete;
    CXMLParser& operator=(const CXMLParser&) = delete;

    // Error when a document is already held (it is released then, as Close does).
    Result Create();
    // Error when no document is held or the file does not parse.
    Result Load(const std::filesystem::path& file);
    Result GetValue(std::string_view xpath, std::string& out) const;
    Result GetValueAt(const pugi::xml_node& context, std::string_view xpath,
                      std::string& out) const;
    // Empty when no document is held or the expression is invalid.
    pugi::xpath_node_set selectNodes(std::string_view xpath) const;
    void Close();

private:
    std::unique_ptr<pugi::xml_document> document;
};

constexpr bool found(CXMLParser::Result r) { return r != CXMLParser::Result::Error; }

} // namespace zonara
