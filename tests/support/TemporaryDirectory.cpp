#include "support/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tidewell::testing {

TemporaryDirectory::TemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tidewell-test-XXXXXX");
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("mkdtemp failed");
    // Resolved, so that paths compare equal to the normalised ones the code stores.
    path_ = std::filesystem::canonical(pattern);
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    for (auto it = std::filesystem::recursive_directory_iterator(path_, ignored);
         it != std::filesystem::recursive_directory_iterator(); it.increment(ignored)) {
        if (!it->is_symlink())
            std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                         std::filesystem::perm_options::add, ignored);
    }
    std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryDirectory::write(const std::string& relativePath,
                                      const std::string& bytes) const {
    const std::filesystem::path file = std::filesystem::path(path_) / relativePath;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

std::string TemporaryDirectory::makeFolder(const std::string& relativePath) const {
    const std::filesystem::path folder = std::filesystem::path(path_) / relativePath;
    std::filesystem::create_directories(folder);
    return folder;
}

} // namespace tidewell::testing
