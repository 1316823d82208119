#pragma once
// The euro reference rates in the shape the central bank publishes them, namespaces included.

#include <string>
#include <string_view>

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

} // namespace zonara::test
