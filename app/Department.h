#pragma once

#include "app/Options.h"
#include "database/Connection.h"
#include "demo/sample/SampleDepartment.h"

#include <memory>
#include <optional>
#include <string>

namespace quellbrook {

// A directory of its own below the system's temporary one, removed with all that is in it at destruction.
class ScratchDirectory {
public:
    ScratchDirectory();  // Error 5 with a sentence
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

// The department that a run works with.
struct Department {
    std::unique_ptr<ScratchDirectory> scratch;  // where it lies, if it is a copy for this run alone
    std::string path;
    std::shared_ptr<Engine> engine;
};

// Where the department that the options name stands or is to be made; nothing for a copy for one run alone.
std::optional<std::string> DepartmentPath(const Options& options, const std::string& dataDirectory);

// Opens the database that the options name; a department of the sample's making is made first where it does not stand
// yet, in the data directory or in a scratch directory, and gets the label templates that it lacks. Error 5 with a
// sentence for a file that can't be used; such a file is left as it is.
Department OpenDepartment(const Options& options, const std::string& dataDirectory, const SampleProgress& progress);

// Makes the department the one that the component works with: its database, its files and its attachments, both from
// the directory of the database on.
void UseDepartment(const Department& department);

// Whether the accounts of the database in use may be shown to anybody.
bool IsSampleDepartment();

}  // namespace quellbrook
