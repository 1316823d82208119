#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>

#include "app/cli/TransferProgress.h"

namespace zonara {

TEST(TransferProgress, DrawsABarOnATerminalAndOnePlainLineOtherwise) {
    using Steps = std::function<void(TransferProgress&)>;
    struct Row {
        const char* name;
        Steps steps;
        std::string terminal;
        std::string plain;
    };
    const Row rows[] = {
        {"known length, two chunks",
         [](TransferProgress& p) {
             p.begin("a.dat");
             p.size(2000);
             p.position(1000);
             p.position(2000);
             p.position(2000); // the end's message repeats the length
             p.end();
         },
         "\ra.dat [--------------------]   0%  0 of 2000 bytes"
         "\ra.dat [##########----------]  50%  1000 of 2000 bytes"
         "\ra.dat [####################] 100%  2000 of 2000 bytes"
         "\ra.dat [####################] 100%  2000 of 2000 bytes\n",
         "a.dat: 2000 of 2000 bytes\n"},
        {"unknown length: the end's 0 keeps the count",
         [](TransferProgress& p) {
             p.begin("b.dat");
             p.position(1000);
             p.position(1500);
             p.position(0);
             p.end();
         },
         "\rb.dat  1000 bytes\rb.dat  1500 bytes\n", "b.dat: 1500 bytes\n"},
        {"nothing arrived: no line",
         [](TransferProgress& p) {
             p.begin("c.dat");
             p.end();
             p.end();
         },
         "", ""},
        {"a new file ends the line before",
         [](TransferProgress& p) {
             p.begin("long-name.dat");
             p.position(123456);
             p.begin("d");
             p.size(0);
         },
         "\rlong-name.dat  123456 bytes\rlong-name.dat  123456 bytes\n"
         "\rd [####################] 100%  0 of 0 bytes",
         "long-name.dat: 123456 bytes\n"},
        {"a length past 32767: percent from 64-bit counts",
         [](TransferProgress& p) {
             p.begin("e");
             p.size(3000000000);
             p.position(1500000000);
         },
         "\re [--------------------]   0%  0 of 3000000000 bytes"
         "\re [##########----------]  50%  1500000000 of 3000000000 bytes",
         ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        std::ostringstream terminal, plain;
        TransferProgress onTerminal(terminal, true), onFile(plain, false);
        row.steps(onTerminal);
        row.steps(onFile);
        EXPECT_EQ(terminal.str(), row.terminal);
        EXPECT_EQ(plain.str(), row.plain);
    }
}

TEST(TransferProgress, ALargeFileRedrawsOncePerPercent) {
    std::ostringstream out;
    TransferProgress progress(out, true);
    progress.begin("big.dat");
    progress.size(5000000);
    for (std::int64_t bytes = 1000; bytes <= 5000000; bytes += 1000)
        progress.position(bytes);
    progress.end();
    const std::string shown = out.str();
    const auto redraws = std::count(shown.begin(), shown.end(), '\r');
    EXPECT_EQ(redraws, 102); // 0% to 100%, and the end's
}

} // namespace zonara
