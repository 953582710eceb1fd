#pragma once

#include "core/items/DataFolder.h"

#include <memory>

namespace tidewell {

// Proof that this is the only application instance of the user: an exclusive lock on
// app.lock in the data folder, held for as long as the guard lives. The system drops the
// lock when the process ends, however it ends.
class SingleInstanceGuard {
public:
    // Null when another instance holds the lock or the lock file cannot be opened.
    static std::unique_ptr<SingleInstanceGuard> acquire(const DataFolder& folder);
    ~SingleInstanceGuard();
    SingleInstanceGuard(const SingleInstanceGuard&) = delete;
    SingleInstanceGuard& operator=(const SingleInstanceGuard&) = delete;

private:
    explicit SingleInstanceGuard(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};

} // namespace tidewell
