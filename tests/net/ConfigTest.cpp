#include <gtest/gtest.h>

#include <map>

#include "net/Config.h"
#include "support/TempDir.h"

namespace zonara {

namespace {

// Every setting as text, so that one table row can name the one it is about.
std::map<std::string, std::string> settingsOf(const Config& c) {
    const char* sources[] = {"auto", "hosts", "metno"};
    return {{"offline", c.network.offline ? "true" : "false"},
            {"http_port", std::to_string(c.network.httpPort)},
            {"https_port", std::to_string(c.network.httpsPort)},
            {"timeout_ms", std::to_string(c.network.timeout.count())},
            {"primary", c.update.primary},
            {"fallback", c.update.fallback},
            {"source", sources[int(c.weather.source)]},
            {"contact", c.weather.contact},
            {"codes", c.currency.codes},
            {"rates", c.currency.rates}};
}

} // namespace

TEST(Config, ReadsEachSettingAndFallsBackToItsDefault) {
    struct Row {
        const char* text;
        const char* setting;
        std::string expected;
        std::size_t warnings;
    };
    const std::string rates = CurrencyConfig().rates;
    const Row rows[] = {
        {"", "http_port", "80", 0},
        {"", "timeout_ms", "100000", 0},
        {"", "primary", "", 0},
        {"[network]\nhttp_port=8080", "http_port", "8080", 0},
        {"[network]\nhttp_port = 8080   ; the test host", "http_port", "8080", 0},
        {"[NETWORK]\r\nHTTP_PORT=81\r\n", "http_port", "81", 0},
        {"[network]\nhttp_port=81\nhttp_port=82", "http_port", "82", 0},
        {"[network]\nhttp_port=0", "http_port", "80", 1},
        {"[network]\nhttp_port=65536", "http_port", "80", 1},
        {"[network]\nhttp_port=80x", "http_port", "80", 1},
        {"[network]\nhttps_port=8443\nunknown=1", "https_port", "8443", 0},
        {"https_port=8443\n[network]", "https_port", "443", 0},
        {"[update]\nhttp_port=99", "http_port", "80", 0},
        {"[network]\noffline=true", "offline", "true", 0},
        {"[network]\noffline=maybe", "offline", "false", 1},
        {"[network]\ntimeout_s=0.25", "timeout_ms", "250", 0},
        {"[network]\ntimeout_s=-3", "timeout_ms", "100000", 1},
        {"[network]\ntimeout_s=", "timeout_ms", "100000", 1},
        {"[update]\nprimary=updates.example.org", "primary", "updates.example.org", 0},
        {"[update]\nfallback=127.0.0.1", "fallback", "127.0.0.1", 0},
        {"[update]\nprimary=http://updates.example.org/", "primary", "", 1},
        {"[weather]\nsource=metno", "source", "metno", 0},
        {"[weather]\nsource=Hosts", "source", "hosts", 0},
        {"[weather]\nsource=rain", "source", "auto", 1},
        {"[weather]\ncontact=ops@example.org ; who answers", "contact", "ops@example.org", 0},
        {"[currency]\ncodes=http://127.0.0.1/a;b=1#c", "codes", "http://127.0.0.1/a;b=1#c", 0},
        {"[currency]\nrates=ftp://example.org/rates.xml", "rates", rates, 1},
        {"; a comment\n# another\n[network]\n  http_port=81  ", "http_port", "81", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const ConfigRead read = parseConfig(row.text);
        EXPECT_EQ(settingsOf(read.config).at(row.setting), row.expected);
        EXPECT_EQ(read.warnings.size(), row.warnings);
    }
}

TEST(Config, WarnsOncePerMalformedValueNamingWhereAndWhatIsUsed) {
    const ConfigRead read =
        parseConfig("[network]\nhttp_port=0\ntimeout_s=soon\n[weather]\nsource=rain\n", "z.ini");
    EXPECT_EQ(read.warnings, (std::vector<std::string>{
                                 "z.ini:2: [network] http_port=0 is not valid; using 80",
                                 "z.ini:3: [network] timeout_s=soon is not valid; using 100",
                                 "z.ini:5: [weather] source=rain is not valid; using auto"}));
}

TEST(Config, ReadsTheFileBesideTheDataAndTakesDefaultsWithoutIt) {
    test::TempDir dir;
    const Paths paths(dir.path());
    const ConfigRead missing = readConfig(configFile(paths));
    EXPECT_TRUE(missing.warnings.empty());
    EXPECT_EQ(missing.config.network.httpPort, 80);

    test::writeFile(dir.path() / "zonara.ini", "[update]\nprimary=127.0.0.1\n");
    EXPECT_EQ(readConfig(configFile(paths)).config.update.primary, "127.0.0.1");
}

} // namespace zonara
