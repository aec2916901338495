// Says on a command line which tables the files below some folders name: see docs/bracken-scan.md.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>

#include "tools/bracken-scan/answer.h"
#include "tools/bracken-scan/failure.h"
#include "tools/bracken-scan/interrupt.h"
#include "tools/bracken-scan/names.h"
#include "tools/bracken-scan/options.h"
#include "tools/bracken-scan/progress.h"
#include "tools/bracken-scan/scan.h"

namespace {

using namespace bracken::cli;

void complain(const std::string& text) {
    std::fprintf(stderr, "bracken-scan: %s\n", text.c_str());
}

void search(const Options& options, const Needles& needles, Findings& findings, Summary& summary) {
    const auto start = std::chrono::steady_clock::now();
    const SourceFilter filter(options);
    SourceWalk walk(options.folders, filter);
    const unsigned processors = std::max(std::thread::hardware_concurrency(), 1U);
    {
        const Progress progress(options, filter, findings);
        scan(walk, needles, options.threads > 0 ? options.threads : processors, findings);
    }
    summary.files = findings.files();
    summary.bytes = findings.bytes();
    summary.filtered = walk.filtered();
    summary.unreadable = findings.unreadable();
    summary.time = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - start);
}

int statusOf(const Summary& summary) {
    if (!summary.unreadable.empty()) return Status::failed;
    return summary.unused > 0 ? Status::someUnused : Status::allNamed;
}

int run(const Options& options, Output& output) {
    const AllowList allowed(options.allow);
    const auto tables = tableNames(options);
    const Needles needles(tables, options.stripPrefix, options.wholeNames);
    Findings findings(needles.matcher().nameCount());
    Summary summary;
    search(options, needles, findings, summary);
    for (const Unreadable& unreadable : summary.unreadable)
        complain(unreadable.path + ": " + unreadable.reason);
    const auto writer = AnswerWriter::make(options, output);
    writeAnswer(tables, needles, findings, allowed, options.unusedOnly, summary, *writer);
    output.flush();
    return statusOf(summary);
}

int runOrPrint(const Options& options) {
    Output output;
    if (!options.help && !options.version) return run(options, output);
    output.line(options.help ? usage : "bracken-scan " BRACKEN_VERSION);
    output.flush();
    return Status::allNamed;
}

}  // namespace

int main(int argc, char** argv) {
    // A closed pipe is met by the write that fails.
    std::signal(SIGPIPE, SIG_IGN);
    handleInterrupts();
    try {
        return runOrPrint(parseOptions(argc, argv));
    } catch (const WrongUse& error) {
        complain(std::string(error.what()) + "\nTry 'bracken-scan --help'.");
    } catch (const std::exception& error) {
        complain(error.what());
    }
    return Status::failed;
}
