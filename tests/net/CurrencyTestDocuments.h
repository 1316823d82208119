#pragma once
// The euro reference rates and the currency code list in the shapes their
// publishers use, namespaces included.

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace zonara::test {

// The daily file with the given <Cube currency='…' rate='…'/> lines.
inline std::string ratesDocument(std::string_view cubes) {
    return std::string(R"(<?xml version="1.0" encoding="UTF-8"?>
<gesmes:Envelope xmlns:gesmes="http://www.gesmes.org/xml/2002-08-01" xmlns="http://www.ecb.int/vocabulary/2002-08-01/eurofxref">
	<gesmes:subject>Reference rates</gesmes:subject>
	<gesmes:Sender>
		<gesmes:name>European Central Bank</gesmes:name>
	</gesmes:Sender>
	<Cube>
		<Cube time='2025-03-14'>
)") + std::string(cubes) +
           R"(		</Cube>
	</Cube>
</gesmes:Envelope>
)";
}

// The code list with one <Currency> per code and name, in the order given.
inline std::string
codeListDocument(std::initializer_list<std::pair<std::string_view, std::string_view>> currencies) {
    std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>
<CurrencyCodeList xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:noNamespaceSchemaLocation="CurrencyCodeList.xsd">
)";
    for (const auto& [code, name] : currencies) {
        text += "\t<Currency>\n\t\t<CurrencyCoded>" + std::string(code) +
                "</CurrencyCoded>\n\t\t<CurrencyName>" + std::string(name) +
                "</CurrencyName>\n\t</Currency>\n";
    }
    return text + "</CurrencyCodeList>\n";
}

} // namespace zonara::test
