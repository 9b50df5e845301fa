#include "app/records/SchemeRegistration.h"

#include "app/records/RecordAddress.h"
#include "base/Error.h"

#include <QDir>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace quellbrook {

namespace {

const char* const source = "RegisterRecordScheme";
const char* const entryName = "quellbrook-host.desktop";
constexpr int toolLimit = 20'000;  // milliseconds

std::string MimeType() { return "x-scheme-handler/" + std::string(RecordScheme); }

// Quotes a word for the key Exec: escapes special characters inside the quotes, then backslashes as in all text values,
// and doubles "%".
std::string ExecWord(const std::string& word) {
    std::string escaped = "\"";
    for (const char c : word) {
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7f')
            Raise(ErrorNumber::General, source, "The path of the program or of the database has a control character.");
        if (c == '\\')
            escaped += "\\\\\\\\";
        else if (c == '"' || c == '`' || c == '$')
            escaped += std::string("\\\\") + c;
        else if (c == '%')
            escaped += "%%";
        else
            escaped += c;
    }
    return escaped + "\"";
}

void WriteEntry(const QString& directory, const std::string& text) {
    QSaveFile file(QDir(directory).filePath(QString::fromLatin1(entryName)));
    const bool written = QDir().mkpath(directory) && file.open(QIODevice::WriteOnly) &&
                         file.write(QByteArray::fromStdString(text)) == static_cast<qint64>(text.size()) &&
                         file.commit();
    if (!written)
        Raise(ErrorNumber::General, source, "The file '" + file.fileName().toStdString() + "' can't be written.");
}

// Returns false if the tool is not installed.
bool RunTool(const char* name, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(QString::fromLatin1(name));
    if (path.isEmpty()) return false;
    QProcess tool;
    tool.start(path, arguments);
    if (!tool.waitForFinished(toolLimit) || tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0)
        Raise(ErrorNumber::General, source,
              "The desktop could not register the program: " + std::string(name) + " failed.");
    return true;
}

}  // namespace

std::string DesktopEntry(const std::string& program, const std::vector<std::string>& arguments) {
    std::string command = ExecWord(program);
    for (const std::string& argument : arguments) command += " " + ExecWord(argument);
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Quellbrook\n"
           "Comment=Opens records of property and vehicles\n"
           "Exec=" +
           command +
           " %u\n"
           "MimeType=" +
           MimeType() +
           ";\n"
           "Terminal=false\n"
           "NoDisplay=true\n";
}

std::string RegisterRecordScheme(const std::string& program, const std::vector<std::string>& arguments) {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString directory = QDir(data).filePath(QStringLiteral("applications"));
    WriteEntry(directory, DesktopEntry(program, arguments));
    const bool listed = RunTool("update-desktop-database", {directory});
    const QString entry = QString::fromLatin1(entryName);
    const bool preferred = RunTool("xdg-mime", {QStringLiteral("default"), entry, QString::fromStdString(MimeType())});
    const std::string wrote = "Wrote '" + QDir(directory).filePath(entry).toStdString() + "'";
    if (preferred) return wrote + " and made it the program that opens " + std::string(RecordScheme) + " addresses.";
    const std::string missing = "xdg-mime is not installed, so ";
    if (listed) return wrote + " and updated the desktop's list; " + missing + "another program may come first.";
    return wrote + "; " + missing + "log in again if the desktop does not know it yet.";
}

}  // namespace quellbrook
