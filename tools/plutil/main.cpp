#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "framework/files/folder_item.h"
#include "tools/plutil/conversion.h"
#include "tools/plutil/limits.h"
#include "tools/plutil/xml.h"

// Converts a property-list file in place between its binary and its XML form. The file is replaced
// in one step, and is unchanged after a failure.
namespace {

using bracken::FolderItem;
using bracken::GetFolderItem;
using bracken::Ref;

std::string readAll(const FolderItem& file) {
    auto stream = file.OpenAsTextFile();
    if (stream == nullptr) throw std::runtime_error("can't be read");
    return stream->ReadAll();
}

std::string converted(const std::string& bytes, bool toXml) {
    using namespace bracken::plutil;
    if (bytes.size() > maxBytes) throw std::runtime_error("is too large");
    if (isBinary(bytes)) checkExpansion(bytes);
    if (!toXml && !isBinary(bytes) && !isRepresentable(bytes))
        throw std::runtime_error("has values of no such form");
    std::string parsable = isBinary(bytes) ? bytes : wellFormed(bytes);
    if (toXml) return toReadersShape(bracken::plutil::toXml(parsable));
    std::string binary = toBinary(parsable);
    // Otherwise it could never be read again.
    checkExpansion(binary);
    return binary;
}

void convert(const std::string& form, const std::string& path) {
    Ref<FolderItem> file = GetFolderItem(std::filesystem::absolute(path), 0);
    std::string text = converted(readAll(*file), form == "xml1");
    auto stream = file->CreateTextFile();
    if (stream == nullptr) throw std::runtime_error("can't be written");
    stream->Write(text);
    if (!stream->Close()) throw std::runtime_error("can't be written");
}

}  // namespace

int main(int argc, char** argv) {
    std::string form = argc == 4 ? argv[2] : "";
    if (argc != 4 || std::string(argv[1]) != "-convert" || (form != "xml1" && form != "binary1")) {
        std::cerr << "usage: plutil -convert xml1|binary1 FILE\n";
        return 2;
    }
    try {
        convert(form, argv[3]);
    } catch (const std::exception& failure) {
        std::cerr << argv[3] << ": " << failure.what() << '\n';
        return 1;
    }
}
