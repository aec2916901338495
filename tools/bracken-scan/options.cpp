#include "tools/bracken-scan/options.h"

#include <getopt.h>

#include <charconv>
#include <map>

#include "framework/text/text.h"
#include "tools/bracken-scan/failure.h"

namespace bracken::cli {

namespace {

enum Key : int {
    tables = 1,
    database,
    host,
    user,
    socket,
    port,
    passwordFile,
    extensions,
    exclude,
    wholeNames,
    stripPrefix,
    format,
    unused,
    allow,
    threads,
    color,
    help,
    version
};

const option longOptions[] = {{"tables", required_argument, nullptr, tables},
                              {"database", required_argument, nullptr, database},
                              {"host", required_argument, nullptr, host},
                              {"user", required_argument, nullptr, user},
                              {"socket", required_argument, nullptr, socket},
                              {"port", required_argument, nullptr, port},
                              {"password-file", required_argument, nullptr, passwordFile},
                              {"extensions", required_argument, nullptr, extensions},
                              {"exclude", required_argument, nullptr, exclude},
                              {"whole-names", no_argument, nullptr, wholeNames},
                              {"strip-prefix", required_argument, nullptr, stripPrefix},
                              {"format", required_argument, nullptr, format},
                              {"unused", no_argument, nullptr, unused},
                              {"allow", required_argument, nullptr, allow},
                              {"threads", required_argument, nullptr, threads},
                              {"color", required_argument, nullptr, color},
                              {"help", no_argument, nullptr, help},
                              {"version", no_argument, nullptr, version},
                              {}};

unsigned numberOf(const std::string& name, const std::string& text, unsigned max) {
    unsigned value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || value < 1 || value > max)
        throw WrongUse(name + " takes a whole number from 1 to " + Str(int64_t{max}) + ", not \"" +
                       text + "\"");
    return value;
}

template <class Value>
Value choiceOf(const std::string& name, const std::string& text,
               const std::map<std::string, Value>& choices) {
    const auto found = choices.find(text);
    if (found != choices.end()) return found->second;
    std::string known;
    for (const auto& [choice, value] : choices) known += (known.empty() ? "" : ", ") + choice;
    throw WrongUse(name + " takes one of " + known + ", not \"" + text + "\"");
}

void addExtensions(const std::string& list, std::vector<std::string>& extensions) {
    for (size_t begin = 0, end = 0; end != list.npos; begin = end + 1) {
        end = list.find(',', begin);
        std::string extension = Lowercase(list.substr(begin, end - begin));
        if (extension.starts_with('.')) extension.erase(0, 1);
        if (extension.empty()) throw WrongUse("--extensions takes no empty extension");
        extensions.push_back(std::move(extension));
    }
}

void setLogin(Options& options, int key, const std::string& value) {
    if (key == host) options.host = value;
    if (key == user) options.user = value;
    if (key == socket) options.socket = value;
    if (key == passwordFile) options.passwordFile = value;
    if (key == port) options.port = Str(int64_t{numberOf("--port", value, 65535)});
}

void setSearch(Options& options, int key, const std::string& value) {
    if (key == tables) options.tables = value;
    if (key == database) options.database = value;
    if (key == extensions) addExtensions(value, options.extensions);
    if (key == exclude) options.excludes.push_back(value);
    if (key == wholeNames) options.wholeNames = true;
    if (key == stripPrefix) options.stripPrefix = value;
    if (key == threads) options.threads = numberOf("--threads", value, 1'000'000'000);
}

void setAnswer(Options& options, int key, const std::string& value) {
    if (key == format)
        options.format = choiceOf<Format>(
            "--format", value,
            {{"text", Format::text}, {"tsv", Format::tsv}, {"json", Format::json}});
    if (key == color)
        options.color = choiceOf<Color>(
            "--color", value,
            {{"auto", Color::automatic}, {"always", Color::always}, {"never", Color::never}});
    if (key == unused) options.unusedOnly = true;
    if (key == allow) options.allow = value;
    if (key == help) options.help = true;
    if (key == version) options.version = true;
}

// `word` is the latest that was read; of letters after a single dash it may be an earlier one.
[[noreturn]] void refuse(int key, const std::string& word) {
    if (key == ':') throw WrongUse(word + " takes a value");
    if (optopt > version)
        throw WrongUse("there is no option -" + std::string(1, static_cast<char>(optopt)));
    throw WrongUse(optopt > 0 ? word + " takes no value" : "there is no option " + word);
}

void check(const Options& options) {
    if (options.tables && options.database)
        throw WrongUse("--tables and --database can't be given together");
    if (!options.tables && !options.database) throw WrongUse("--tables or --database is needed");
    if (options.folders.empty()) throw WrongUse("a FOLDER to search is needed");
}

}  // namespace

Options parseOptions(int argc, char** argv) {
    Options options;
    opterr = 0;
    int key = 0;
    while ((key = getopt_long(argc, argv, ":", longOptions, nullptr)) != -1) {
        if (key == ':' || key == '?') refuse(key, argv[optind - 1]);
        const std::string value = optarg == nullptr ? "" : optarg;
        setLogin(options, key, value);
        setSearch(options, key, value);
        setAnswer(options, key, value);
        if (options.help || options.version) return options;
    }
    options.folders.assign(argv + optind, argv + argc);
    check(options);
    return options;
}

}  // namespace bracken::cli
