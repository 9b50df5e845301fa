#include "host/PersonDirectory.h"

#include "host/HostDatabase.h"

namespace quellbrook {

std::string PersonDirectory::NameForId(const TaggedValue& personId) {
    const int32_t id = ToInt32(personId);
    const auto person = HostDatabase().QueryRow("SELECT LastName, FirstName FROM Person WHERE PersonNo = ?", {id});
    return person ? NameOf(*person) : "Unknown (" + std::to_string(id) + ")";
}

std::string PersonDirectory::NameOf(const Row& person) {
    const std::string lastName = ToTextOrEmpty(person.Value("LastName"));
    const std::string firstName = ToTextOrEmpty(person.Value("FirstName"));
    return firstName.empty() ? lastName : lastName + ", " + firstName;
}

}  // namespace quellbrook
