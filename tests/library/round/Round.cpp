#include "component/ClassFactory.h"
#include "component/PublicClasses.h"
#include "component/Quellbrook.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "host/HostServices.h"

#include <QCoreApplication>
#include <QMainWindow>

#include <memory>
#include <string>

using namespace quellbrook;

namespace {

class Custodian : public HostSession {
public:
    std::string Username() const override { return "custodian"; }
    std::string AgencyName() const override { return "Harlow Bay"; }
    void Login(const std::string&, const std::string&, const std::string&) override {}
    bool HasPermission(const std::string&, int16_t) override { return true; }
};

void Expect(bool condition, const char* what) {
    if (!condition) Raise(ErrorNumber::General, "Round", what);
}

template <typename T>
std::shared_ptr<T> Create(const char* classId) {
    void* found = nullptr;
    Expect(DllGetClassObject(classId, InterfaceId::ClassFactory, &found) == ComponentResult::Ok, "no factory");
    auto* const factory = static_cast<ClassFactory*>(found);
    std::shared_ptr<void> object;
    const int32_t result = factory->CreateInstance(nullptr, &object);
    factory->Release();
    Expect(result == ComponentResult::Ok, "no object");
    return std::static_pointer_cast<T>(object);
}

void Use() {
    QMainWindow window;
    SetDialogParent(&window);
    const auto singletons = Create<Singletons>(ClassId::Singletons);
    Expect(singletons->InitializeQuellbrook(), "the gate stayed closed");
    const auto evidence = Create<QWidget>(ClassId::EvidenceUI);
    window.setCentralWidget(evidence.get());
    window.show();
    evidence->show();
    QCoreApplication::processEvents();
    Expect(ItemsInOpenBatch() == 0, "there is a batch");
    const auto roots = singletons->StorageLocation().GetRoot(StorageLocationTypes::Internal)->SubLocations();
    Expect(roots.size() == 1 && roots[0]->Name() == "Shelf", "another location");
    const auto search = Create<StoredItemSearch>(ClassId::StoredItemSearch);
    const auto items = search->InLocation(roots[0]).Execute();
    Expect(items->Count() == 1, "another number of items");
    const StoredItemRef item = items->ItemAt(0);
    Expect(item->DisplayID() == "P-17" && item->Description() == "Lantern", "another item");
    Expect(item->TrackingRecords().size() == 2, "another chain of custody");
}

}  // namespace

// Makes a database with one item on a shelf.
extern "C" void MakeDepartment(const char* databasePath) {
    CreateDatabase(databasePath);
    const auto connection = SqliteEngine::Open(databasePath)->Open();
    connection->Begin();
    for (const char* statement :
         {"INSERT INTO StorageLocation (Name, Type, Path, DateEntered, LastUpdated) VALUES ('Shelf', 2, '/0/', "
          "'2026-01-01T08:00:00.000', '2026-01-01T08:00:00.000')",
          "INSERT INTO Property (PropertyID, Description, RecordTypeInd) VALUES ('P-17', 'Lantern', 0)",
          "INSERT INTO PropertyTracking (PropertyNo, SeqNo, DateReceived, StorageLocNo, LastUpdated) VALUES (1, 1, "
          "'2026-01-01T08:00:00.000', 1, '2026-01-01T08:00:00.000')",
          "INSERT INTO PropertyTracking (PropertyNo, SeqNo, DateReceived, StorageLocNo, LastUpdated) VALUES (1, 2, "
          "'2026-01-02T08:00:00.000', 1, '2026-01-02T08:00:00.000')",
          "UPDATE Property SET CurrTrackSeq = 2 WHERE PropertyNo = 1"})
        connection->Execute(statement);
    connection->Commit();
}

// One use of the component from its start to its end. Returns what went wrong; empty if nothing did.
extern "C" const char* Round(const char* databasePath) {
    static std::string failure;
    failure.clear();
    Startup();
    try {
        HostServices::Current().SetEngine(SqliteEngine::Open(databasePath));
        HostServices::Current().SetSession(std::make_shared<Custodian>());
        Use();
    } catch (const Error& error) {
        failure = error.Source() + ": " + error.Description();
    }
    HostServices::Current().Reset();
    Shutdown();
    if (failure.empty() && DllCanUnloadNow() != ComponentResult::Ok) failure = "Something of the component is left.";
    return failure.c_str();
}
