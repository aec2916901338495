#pragma once

#include <optional>
#include <string>
#include <vector>

namespace bracken::cli {

enum class Format { text, tsv, json };
enum class Color { automatic, always, never };

// What the command line says. Bytes as they were given.
struct Options {
    // One of the two is there.
    std::optional<std::string> tables;
    std::optional<std::string> database;

    std::string host = "localhost";
    std::string user;
    std::optional<std::string> socket;
    std::optional<std::string> port;
    std::optional<std::string> passwordFile;

    // In lower case, without a dot in front, none of them empty.
    std::vector<std::string> extensions;
    std::vector<std::string> excludes;
    bool wholeNames = false;
    std::string stripPrefix;

    Format format = Format::text;
    bool unusedOnly = false;
    std::optional<std::string> allow;
    // 0: as many as there are processors.
    unsigned threads = 0;
    Color color = Color::automatic;

    // One or more, unless there is help or version to print.
    std::vector<std::string> folders;
    bool help = false;
    bool version = false;
};

// Throws WrongUse.
Options parseOptions(int argc, char** argv);

// What --help prints.
extern const char* const usage;

}  // namespace bracken::cli
