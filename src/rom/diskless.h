#pragma once

#include "rom/file_layer.h"

namespace veldrune {

/// A layer over one file that is on no disk: it opens that file whatever the name, and does nothing
/// else.
class DisklessLayer : public FileLayer {
  public:
    std::unique_ptr<File> create(const std::string&, unsigned) override { return nullptr; }
    bool rename(const std::string&, const std::string&) override { return false; }
    void remove(const std::string&) override {}
    Answer leads_to(const std::string&, const FileIdentity&) override { return Answer::unknown; }
    NameStatus status_of(const std::string&) override { return {}; }
    bool flush_folder(const std::string&) override { return true; }
};

class DisklessFile : public File {
  public:
    bool flush() override { return true; }
    bool close() override { return true; }
    Answer lock() override { return Answer::unknown; }
};

} // namespace veldrune
