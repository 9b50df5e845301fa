#pragma once

#include "component/ClassFactory.h"

#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

using ClassObjectGetter = decltype(&DllGetClassObject);

// Where the record of the component's classes may be: beside the installed or built program, then in the user's data
// folder, then in those of the machine.
std::vector<std::string> ClassRecordPaths(const std::string& programDirectory);

// Opens the library that the first existing record names, and returns its entry point for classes. Error 5 with a
// sentence without a record, for a record without a path, for a library that can't be opened, and for one that is not
// the library that this program was linked with.
ClassObjectGetter OpenComponentLibrary(const std::vector<std::string>& recordPaths);

// A new object of the class. Error 5 with a sentence if the component can't create it.
std::shared_ptr<void> CreateComponentObject(ClassObjectGetter getClassObject, const char* classId);

template <typename T>
std::shared_ptr<T> CreateComponentObject(ClassObjectGetter getClassObject, const char* classId) {
    return std::static_pointer_cast<T>(CreateComponentObject(getClassObject, classId));
}

}  // namespace quellbrook
