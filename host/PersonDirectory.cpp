#include "host/PersonDirectory.h"

#include "host/HostDatabase.h"

namespace quellbrook {

std::string PersonDirectory::NameForId(const TaggedValue& personId) {
    const std::string id = std::to_string(ToInt32(personId));
    const auto person = HostDatabase().QueryRow("SELECT LastName, FirstName FROM Person WHERE PersonNo = " + id);
    return person ? NameOf(*person) : "Unknown (" + id + ")";
}

std::string PersonDirectory::NameOf(const Row& person) {
    const std::string lastName = ToTextOrEmpty(person.Value("LastName"));
    const std::string firstName = ToTextOrEmpty(person.Value("FirstName"));
    return firstName.empty() ? lastName : lastName + ", " + firstName;
}

}  // namespace quellbrook
