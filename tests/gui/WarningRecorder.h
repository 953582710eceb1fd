#pragma once

#include <QtGlobal>
#include <string>
#include <vector>

namespace tidewell::testing {

// Every warning Qt reports while it is installed.
class WarningRecorder {
public:
    WarningRecorder() : previous_(qInstallMessageHandler(&record)) { messages().clear(); }
    ~WarningRecorder() { qInstallMessageHandler(previous_); }
    WarningRecorder(const WarningRecorder&) = delete;
    WarningRecorder& operator=(const WarningRecorder&) = delete;

    static std::vector<std::string>& messages() {
        static std::vector<std::string> recorded;
        return recorded;
    }

private:
    static void record(QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type != QtDebugMsg && type != QtInfoMsg)
            messages().push_back(message.toStdString());
    }
    QtMessageHandler previous_;
};

} // namespace tidewell::testing
