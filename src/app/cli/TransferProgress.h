#pragma once
// A transfer's progress on a command's output: a bar redrawn in place on a
// terminal, one plain line per file otherwise.

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

namespace zonara {

class TransferProgress {
  public:
    static constexpr int barWidth = 20;

    TransferProgress(std::ostream& out, bool terminal) : out(out), terminal(terminal) {}

    // A new file; the line of the one before is ended first.
    void begin(std::string name);
    // The file's content length, when the server gave one.
    void size(std::int64_t length);
    // Bytes written so far; a smaller count (the end of a file whose length
    // was unknown reports 0) leaves the shown count as it was.
    void position(std::int64_t bytes);
    // Ends the file's line: the bar's line break on a terminal, the plain
    // line otherwise. Nothing for a file that never got a length or a byte.
    void end();

    // "city40.dat [##########----------]  50%  1000 of 2000 bytes", or
    // "city40.dat  1000 bytes" when the length is unknown.
    std::string barLine() const;
    // "city40.dat: 1000 of 2000 bytes", or "city40.dat: 1000 bytes".
    std::string plainLine() const;

  private:
    void draw();

    std::ostream& out;
    bool terminal;
    bool open = false;
    std::string name;
    std::optional<std::int64_t> length;
    std::int64_t bytes = 0;
    std::string drawn; // what the terminal line shows now
    std::int64_t drawnStep = -1;
};

} // namespace zonara
