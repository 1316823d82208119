#include <gtest/gtest.h>

#include "support/CommandRunner.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using namespace std::string_literals;
using test::runZonara;

// One command after another on one list; each row sees what the rows before
// it left in the file.
TEST(CmdAirports, ListsAddsAndDeletesAsTheDialogDoes) {
    test::TempDir dir;
    const std::string root = dir.path().string();
    const auto file = dir.path() / "Data" / "airport.dat";
    struct Row {
        std::vector<std::string> words;
        int exitCode;
        const char* out;
        const char* err;
    };
    const std::string tooLong(256, 'x');
    // clang-format off
    const Row rows[] = {
        {{"--tsv", "airports"}, 0, "", ""},
        {{"airports", "add", "London City", "eglc "}, 0, "Added 0: London City (EGLC)\n", ""},
        {{"airports", "add", "Gatwick", "EGKK"}, 0, "Added 0: Gatwick (EGKK)\n", ""},
        {{"airports", "add", "Heathrow", " egll"}, 0, "Added 1: Heathrow (EGLL)\n", ""},
        // Duplicates are accepted, after their equals.
        {{"airports", "add", "Gatwick", "EGKK"}, 0, "Added 1: Gatwick (EGKK)\n", ""},
        {{"--tsv", "airports"}, 0, "Gatwick\tEGKK\nGatwick\tEGKK\nHeathrow\tEGLL\nLondon City\tEGLC\n", ""},
        // The dialog's refusals, word for word.
        {{"airports", "add", "", "EGSS"}, 1, "", "zonara airports: Please enter a description.\n"},
        {{"airports", "add", "Stansted", "EGS"}, 1, "", "zonara airports: Please enter a 4 letter ICAO code.\n"},
        {{"airports", "add", "Stansted"}, 1, "", "zonara airports: Please enter a 4 letter ICAO code.\n"},
        {{"airports", "add", tooLong, "EGSS"}, 1, "", "zonara airports: Please enter a description of at most 255 characters.\n"},
        {{"airports", "delete", "4"}, 1, "", "zonara airports: no airport '4'; the list has 0 to 3\n"},
        {{"airports", "delete", "one"}, 1, "", "zonara airports: no airport 'one'; the list has 0 to 3\n"},
        {{"airports", "remove", "1"}, 1, "", "zonara airports: unknown action 'remove'; 'add' or 'delete', or none to list\n"},
        {{"airports", "delete", "1"}, 0, "Deleted 1: Gatwick (EGKK)\n", ""},
        {{"airports", "delete", "2"}, 0, "Deleted 2: London City (EGLC)\n", ""},
        {{"airports"}, 0, "N  Description  ICAO\n0  Gatwick      EGKK\n1  Heathrow     EGLL\n", ""},
    };
    // clang-format on
    for (const Row& row : rows) {
        std::vector<std::string> words{"--root", root};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const auto r = runZonara(words);
        SCOPED_TRACE(row.words.back());
        EXPECT_EQ(r.exitCode, row.exitCode);
        EXPECT_EQ(r.out, row.out);
        EXPECT_EQ(r.err, row.err);
    }
    EXPECT_EQ(test::readFile(file), "\x02\0\0\0"s
                                    "\x07\0\0\0G\0a\0t\0w\0i\0c\0k\0\0\0"
                                    "\x04\0\0\0E\0G\0K\0K\0\0\0"
                                    "\x08\0\0\0H\0e\0a\0t\0h\0r\0o\0w\0\0\0"
                                    "\x04\0\0\0E\0G\0L\0L\0\0\0"s);
}

TEST(CmdAirports, ADamagedFileIsReadToItsDamageAndWrittenWholeByAChange) {
    const std::string city = "\x01\0\0\0"s
                             "\x04\0\0\0C\0i\0t\0y\0\0\0"
                             "\x04\0\0\0E\0G\0L\0C\0\0\0"s;
    struct Row {
        const char* what;
        std::string bytes;
        const char* listed;
    };
    const Row rows[] = {
        {"a count beyond the entries", "\x05\0\0\0"s + city.substr(4), "City\tEGLC\n"},
        {"cut in the code", city.substr(0, city.size() - 3), ""},
        {"a length beyond 255", "\x01\0\0\0\x00\x01\0\0"s + std::string(514, 'a'), ""},
        {"a negative count", "\xff\xff\xff\xff"s + city.substr(4), ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        test::TempDir dir;
        const std::string root = dir.path().string();
        const auto file = dir.path() / "Data" / "airport.dat";
        test::writeFile(file, row.bytes);
        auto r = runZonara({"--root", root, "--tsv", "airports"});
        EXPECT_EQ(r.exitCode, 0);
        EXPECT_EQ(r.out, row.listed);
        // A count of 0 or less is an empty list, not damage.
        if (row.bytes[0] != '\xff') {
            EXPECT_NE(r.err.find("is damaged"), std::string::npos) << r.err;
        }
        r = runZonara({"--root", root, "airports", "add", "Gatwick", "EGKK"});
        EXPECT_EQ(r.exitCode, 0) << r.err;
        r = runZonara({"--root", root, "--tsv", "airports"});
        EXPECT_EQ(r.err, "");
        EXPECT_EQ(r.out, std::string(row.listed) + "Gatwick\tEGKK\n");
    }
}

} // namespace
} // namespace zonara
