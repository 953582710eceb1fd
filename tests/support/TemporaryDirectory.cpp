#include "support/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tidewell::testing {

namespace fs = std::filesystem;

TemporaryDirectory::TemporaryDirectory() {
    std::string pattern = fs::temp_directory_path() / "tidewell-test-XXXXXX";
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("mkdtemp failed");
    // Resolved, so that paths compare equal to the normalised ones the code stores.
    path_ = fs::canonical(pattern);
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    for (auto it = fs::recursive_directory_iterator(path_, ignored);
         it != fs::recursive_directory_iterator(); it.increment(ignored))
        if (!it->is_symlink())
            fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(path_, ignored);
}

std::string TemporaryDirectory::write(const std::string& relativePath,
                                      const std::string& bytes) const {
    const fs::path file = fs::path(path_) / relativePath;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

std::optional<std::string> readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return file ? std::optional(std::string(std::istreambuf_iterator<char>(file), {}))
                : std::nullopt;
}

std::string TemporaryDirectory::makeFolder(const std::string& relativePath) const {
    const fs::path folder = fs::path(path_) / relativePath;
    fs::create_directories(folder);
    return folder;
}

} // namespace tidewell::testing
