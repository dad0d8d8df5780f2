#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace hierfit::language::test {

/// A folder for one test, gone with it.
class TemporaryFolder {
  public:
    TemporaryFolder() : fPath(::testing::TempDir() + "hierfit-XXXXXX") {
        if (!::mkdtemp(fPath.data())) throw std::runtime_error("no temporary folder");
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(fPath, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string Path(const std::string& name) const { return fPath + '/' + name; }

    std::string Write(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
        std::ofstream(Path(name), std::ios::binary) << content;
        return Path(name);
    }

  private:
    std::string fPath;
};

}  // namespace hierfit::language::test
