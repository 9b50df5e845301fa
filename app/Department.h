#pragma once

#include "app/Options.h"
#include "database/Connection.h"
#include "demo/sample/SampleDepartment.h"

#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

class Termination;

// The department that the program works with.
struct Department {
    std::unique_ptr<QTemporaryDir> scratch;  // its folder, if it is a scratch copy
    std::string path;                        // of the file; for a server, of a name in the folder of the other files
    std::shared_ptr<Engine> engine;
    std::vector<std::string> notes;  // what an administrator should know about the opening
};

// Identifies the department that the options name, by its path or connection string; empty for a scratch copy.
std::optional<std::string> DepartmentPath(const Options& options, const std::string& dataDirectory);

// Creates a department in the empty database of a server that the options name, with the rows of the sample or
// generated ones if they ask for them. Pictures go into the data directory. Error 5 with a sentence if that fails; then
// nothing is created.
void CreateOnServer(const Options& options, const std::string& dataDirectory, const SampleProgress& progress);

// Opens the database that the options name. First creates a missing sample or generated department, in the data
// directory or in a scratch folder, and adds missing label templates. For a tour on a server, first creates the sample
// in its database, which must be empty, and the files in a scratch folder. Logs the notes. Error 5 with a sentence for
// a database that cannot be used; it is not changed.
Department OpenDepartment(const Options& options, const std::string& dataDirectory, const SampleProgress& progress);

// The same, showing the progress in a window and on standard error, and the notes on standard error. A termination that
// is requested during the creation cancels it with error 5.
Department OpenDepartmentWithProgress(const Options& options, const std::string& dataDirectory,
                                      const Termination& termination);

// Sets the department's database, files and attachments as the host's services. The files are in the database's folder.
void UseDepartment(const Department& department);

// The accounts that the login form shows: those of the sample, empty for any other department.
std::vector<SampleAccount> AccountsToShow();

}  // namespace quellbrook
