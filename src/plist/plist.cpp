#include "plist/plist.h"

#include "framework/files/shell.h"
#include "framework/text/text.h"

namespace bracken {

plist::plist(const Ref<FolderItem>& file, const Ref<FolderItem>& fallback) {
    plist::Load(file, fallback);
}

void plist::Load(const Ref<FolderItem>& file, const Ref<FolderItem>& fallback) {
    root = make<plistDict>();
    // The fallback may be the savePath so far.
    Ref<FolderItem> source = !file->Exists() && fallback ? fallback : file;
    savePath = file;
    if (!source->Exists()) {
        startNew(*source);
        return;
    }
    std::string line;
    Ref<TextInputStream> stream = openText(source, line);
    read(stream, std::move(line));
    stream->Close();
}

void plist::startNew(const FolderItem& missing) {
    error = true;
    errorMessage = missing.AbsolutePath() + " does not exist";
    headers.insert(headers.end(),
                   {R"(<?xml version="1.0" encoding="UTF-8"?>)",
                    R"(<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" )"
                    R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd">)",
                    R"(<plist version="1.0">)", "<dict>"});
    root->Load(nullptr, "root", false, {}, this, false);
}

Ref<TextInputStream> plist::openText(const Ref<FolderItem>& source, std::string& line) {
    Ref<TextInputStream> stream = source->OpenAsTextFile();
    line = stream->ReadLine(nullptr);
    bool binary = equal(Left(line, 6), "bplist");
    stream->Close();
    return binary ? openCopy(source) : source->OpenAsTextFile();
}

Ref<TextInputStream> plist::openCopy(const Ref<FolderItem>& binary) {
    isBinary = true;
    Ref<FolderItem> copy = binary->Parent()->Child(binary->Name() + " temp");
    copy->Delete();
    binary->CopyFileTo(copy);
    Shell().Execute("plutil -convert xml1 " + copy->ShellPath());
    org = binary;
    savePath = copy;
    return copy->OpenAsTextFile();
}

void plist::read(const Ref<TextInputStream>& stream, std::string line) {
    while (!stream->EOF_() && !equal(line, "<dict>")) {
        line = stream->ReadLine(nullptr);
        headers.push_back(line);
    }
    if (equal(line, "<dict>")) {
        root->Load(stream, "root", false, {}, this, true);
    } else {
        error = true;
        errorMessage = "Not a plist file";
    }
}

void plist::Save() {
    Save(false);
}

void plist::Save(bool cleanup) {
    Ref<TextOutputStream> stream = savePath->CreateTextFile();
    if (stream) {
        writeText(stream);
        stream->Close();
    } else {
        error = true;
        errorMessage = "Could not open file for saving";
    }
    if (isBinary) replaceBinary();
    if (cleanup) Cleanup();
}

void plist::writeText(const Ref<TextOutputStream>& stream) const {
    for (size_t i = 1; i < headers.size(); ++i) stream->WriteLine(headers[i]);
    root->Write(stream, 1);
    stream->WriteLine("</dict>");
    stream->WriteLine("</plist>");
}

void plist::replaceBinary() {
    Shell().Execute("plutil -convert binary1 " + savePath->ShellPath());
    // Replaces the old file in one step.
    savePath->CopyFileTo(org);
}

void plist::Cleanup() {
    if (isBinary) savePath->Delete();
}

}  // namespace bracken
