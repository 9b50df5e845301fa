// Lists what is at a location, and each item's chain of custody, newest first. Uses the model only, without Qt.
//   chain-of-custody DATABASE LOCATION
// LOCATION is a name, or a path such as "Property Room/Shelf A". Exit status: 0, 1 after a failure, 2 for wrong
// arguments.

#include "component/PublicClasses.h"
#include "database/SqliteEngine.h"
#include "host/HostServices.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

using namespace quellbrook;

namespace {

// The model asks for rights at each search. This program runs under the account of an administrator, who has all.
class Administrator : public HostSession {
public:
    std::string Username() const override { return "administrator"; }
    std::string AgencyName() const override { return {}; }
    void Login(const std::string&, const std::string&, const std::string&) override {}
    bool HasPermission(const std::string&, int16_t) override { return true; }
};

void FindBelow(const StorageLocationRef& container, const std::string& name, StorageLocationList& found) {
    for (const StorageLocationRef& location : container->SubLocations()) {
        if (location->Name() == name || location->FullPath() == name) found.push_back(location);
        FindBelow(location, name, found);
    }
}

StorageLocationRef FindLocation(const std::string& name) {
    StorageLocationList found;
    for (const StorageLocationRef& root : GetSingletons().StorageLocation().Roots()) FindBelow(root, name, found);
    if (found.empty()) throw std::runtime_error("There is no location '" + name + "'.");
    if (found.size() == 1) return found.front();
    std::string sentence = "There are several locations '" + name + "'. Give one of these paths:";
    for (const StorageLocationRef& location : found) sentence += "\n  " + location->FullPath();
    throw std::runtime_error(sentence);
}

std::string TextOr(const std::string& text, const char* otherwise) { return text.empty() ? otherwise : text; }

void Print(TrackingRecord& record) {
    const StorageLocationRef location = record.Location();
    std::printf("  %d. %s  %s  from %s to %s  %s\n", record.Sequence(), ToTextOrEmpty(record.DateReceived()).c_str(),
                location ? location->FullPath().c_str() : "(no location)",
                TextOr(record.ReceivedFrom(), "(nobody)").c_str(), TextOr(record.ReceivedBy(), "(nobody)").c_str(),
                record.StorageReason().c_str());
}

// Both kinds of files have the tables of a host, so this opens the reference schema as well.
void List(const std::string& database, const std::string& name) {
    HostServices::Current().SetEngine(SqliteEngine::OpenHostSchema(database));
    HostServices::Current().SetSession(std::make_shared<Administrator>());
    const StorageLocationRef location = FindLocation(name);
    const auto items = location->StoredItems();
    std::printf("%s: %d item(s)\n", location->FullPath().c_str(), items->Count());
    for (int32_t i = 0; i < items->Count(); ++i) {
        const StoredItemRef item = items->ItemAt(i);
        std::printf("\n%s  %s\n", item->DisplayID().c_str(), item->Description().c_str());
        for (const auto& record : item->TrackingRecords()) Print(*record);
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::fputs("Usage: chain-of-custody DATABASE LOCATION\n", stderr);
        return 2;
    }
    int status = 0;
    try {
        List(argv[1], argv[2]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        status = 1;
    }
    HostServices::Current().Reset();
    return status;
}
