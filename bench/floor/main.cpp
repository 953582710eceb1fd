// The least a run of any tool that keeps the items file safe must do: read the file, take
// the lock, write a temporary copy, sync it, rename it over the file, sync the folder and
// print a line. It decodes nothing, so its time is the floor that the file's size and the
// disk set, measured beside the tool and zoxide, which syncs nothing.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void require(bool isDone, const std::string& what) {
    if (isDone)
        return;
    std::fprintf(stderr, "%s: %s\n", what.c_str(), std::strerror(errno));
    std::exit(1);
}

std::string readWhole(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat info {};
    require(file >= 0 && ::fstat(file, &info) == 0, "Cannot open " + path);
    std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
    require(::read(file, bytes.data(), bytes.size()) == info.st_size, "Cannot read " + path);
    ::close(file);
    return bytes;
}

void replaceDurably(const std::string& folder, const std::string& path, const std::string& bytes) {
    const std::string temporary = path + ".floor-" + std::to_string(::getpid());
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    require(file >= 0, "Cannot create " + temporary);
    require(::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
                ::fsync(file) == 0 && ::close(file) == 0,
            "Cannot write " + temporary);
    require(::rename(temporary.c_str(), path.c_str()) == 0, "Cannot rename " + temporary);
    const int directory = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    require(directory >= 0 && ::fsync(directory) == 0, "Cannot sync " + folder);
    ::close(directory);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s <folder of items.json>\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    const std::string path = folder + "/items.json";
    const std::string bytes = readWhole(path);
    const int lock = ::open((folder + "/items.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    require(lock >= 0 && ::flock(lock, LOCK_EX) == 0, "Cannot lock " + folder);
    replaceDurably(folder, path, bytes);
    ::close(lock);
    std::puts("Rewritten");
    return 0;
}
