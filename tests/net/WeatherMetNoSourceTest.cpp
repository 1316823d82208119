#include "net/WeatherMetNoSource.h"

#include <gtest/gtest.h>

#include "WeatherFakeUpstream.h"
#include "WeatherMetJson.h"
#include "core/SystemTime.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;
using test::answered;
using Status = MetNoResult::Status;

ClockSource clockAt(const char* iso) {
    return ClockSource::fixedAt(parseIsoUtc(iso).value());
}

std::int64_t at(const char* iso) {
    return unixFromSystemTime(parseIsoUtc(iso).value());
}

WeatherPlace london() {
    WeatherPlace place;
    place.heading = "London, United Kingdom";
    place.latitude = 51.51;
    place.longitude = -0.13;
    return place;
}

MetNoSettings settingsIn(const fs::path& cache) {
    MetNoSettings settings;
    settings.url = "http://127.0.0.1:9/forecast";
    settings.program = "zonara-test";
    settings.contact = "ops@example.org";
    settings.cacheFolder = cache;
    return settings;
}

TEST(MetNoSource, AForecastIsAskedForOncePerExpiryAndRenewedWhenUnchanged) {
    test::TempDir dir;
    test::WeatherFakeUpstream upstream;
    const std::string json = test::londonJson();
    upstream.answers = {
        answered(200, json, "Mon, 03 Jun 2024 10:30:00 GMT", "Mon, 03 Jun 2024 09:31:12 GMT"),
        answered(304, "", "Mon, 03 Jun 2024 11:30:00 GMT"),
        answered(200, "{}", "Mon, 03 Jun 2024 13:00:00 GMT"),
    };
    struct Step {
        const char* now;
        std::size_t requests; // made so far
        Status status;
        const char* ifModifiedSince;
    };
    const Step steps[] = {
        {"2024-06-03T10:00:00Z", 1, Status::Report, ""},
        {"2024-06-03T10:29:59Z", 1, Status::Report, ""}, // from the cache
        {"2024-06-03T10:30:00Z", 2, Status::Report, "Mon, 03 Jun 2024 09:31:12 GMT"},
        {"2024-06-03T11:00:00Z", 2, Status::Report, ""}, // the renewed entry
        {"2024-06-03T11:30:00Z", 3, Status::NoReport, "Mon, 03 Jun 2024 09:31:12 GMT"},
        {"2024-06-03T12:59:00Z", 3, Status::NoReport, ""}, // the unreadable answer is kept
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.now);
        MetNoReportSource source(settingsIn(dir.path()), upstream, clockAt(step.now));
        const MetNoResult result = source.reportFor(london());
        EXPECT_EQ(result.status, step.status);
        ASSERT_EQ(upstream.requests.size(), step.requests);
        if (*step.ifModifiedSince) {
            EXPECT_EQ(upstream.requests.back().ifModifiedSince, step.ifModifiedSince);
        }
        if (step.status == Status::Report) {
            EXPECT_NE(result.report.find("<root>"), std::string::npos);
        }
    }
    const UpstreamRequest& first = upstream.requests.front();
    EXPECT_EQ(first.url, "http://127.0.0.1:9/forecast?lat=51.51&lon=-0.13");
    EXPECT_EQ(first.userAgent, "zonara-test/0.1 ops@example.org");
    EXPECT_EQ(first.ifModifiedSince, "");
}

TEST(MetNoSource, FailuresAndACacheThatCannotBeKept) {
    const std::string json = test::londonJson();
    UpstreamAnswer unreachable;
    unreachable.error = "Could not resolve host";
    struct Row {
        const char* name;
        UpstreamAnswer answer;
        bool cacheWritable;
        Status status;
        std::int64_t expires;
        const char* detail;
    };
    const Row rows[] = {
        {"expiry from the header", answered(200, json, "Mon, 03 Jun 2024 10:45:00 GMT"), true,
         Status::Report, at("2024-06-03T10:45:00Z"), ""},
        {"no expiry: half an hour", answered(203, json), true, Status::Report,
         at("2024-06-03T10:30:00Z"), ""},
        {"an expiry that does not read", answered(200, json, "soon"), true, Status::Report,
         at("2024-06-03T10:30:00Z"), ""},
        {"throttled", answered(429, "slow down"), true, Status::Unreachable, 0, "HTTP 429"},
        {"not modified without a cache", answered(304, ""), true, Status::Unreachable, 0,
         "HTTP 304"},
        {"unreachable", unreachable, true, Status::Unreachable, 0, "Could not resolve host"},
        {"cache not writable", answered(200, json, "Mon, 03 Jun 2024 10:45:00 GMT"), false,
         Status::Report, at("2024-06-03T10:45:00Z"), ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::TempDir dir;
        // A file where the cache folder should be keeps anything from being written.
        const fs::path cache = row.cacheWritable ? dir.path() : dir.path() / "blocked";
        if (!row.cacheWritable)
            test::writeFile(cache, "not a folder");
        test::WeatherFakeUpstream upstream;
        upstream.answers = {row.answer};
        MetNoReportSource source(settingsIn(cache), upstream, clockAt("2024-06-03T10:00:00Z"));
        const MetNoResult result = source.reportFor(london());
        EXPECT_EQ(result.status, row.status);
        EXPECT_EQ(result.detail, row.detail);
        if (row.status == Status::Report) {
            EXPECT_EQ(result.expires, row.expires);
        }
        // A second ask is answered from the cache only when the first was kept.
        const bool kept = row.cacheWritable && row.status == Status::Report;
        source.reportFor(london());
        EXPECT_EQ(upstream.requests.size(), kept ? 1u : 2u);
    }
}

TEST(MetNoSource, CacheEntriesReadBackAndDamagedOnesAreIgnored) {
    test::TempDir dir;
    const WeatherUpstreamCache cache(dir.path());
    const CachedAnswer entry{1717410600, "Mon, 03 Jun 2024 09:31:12 GMT", "{\"a\":\n1}\n"};
    ASSERT_TRUE(cache.write("51.51_-0.13", entry));
    EXPECT_EQ(cache.read("51.51_-0.13"), entry);
    EXPECT_EQ(cache.fileFor("51.51_-0.13").filename(), "metno-51.51_-0.13.cache");
    EXPECT_EQ(cache.fileFor("../x/y").filename(), "metno-.._x_y.cache");
    EXPECT_FALSE(cache.read("0_0").has_value());
    const std::string whole = test::readFile(cache.fileFor("51.51_-0.13"));
    for (const std::string& damaged :
         {std::string(), whole.substr(0, 30), std::string("zonara-upstream-cache 1\nsoon\n\nbody"),
          std::string("zonara-upstream-cache 2\n1\n\nbody")}) {
        test::writeFile(cache.fileFor("51.51_-0.13"), damaged);
        EXPECT_FALSE(cache.read("51.51_-0.13").has_value()) << damaged;
    }
    EXPECT_FALSE(WeatherUpstreamCache(fs::path()).write("k", entry));
}

} // namespace
} // namespace zonara
