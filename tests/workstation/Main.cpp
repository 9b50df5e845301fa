// One workstation of a test: writes batches, or changes locations, in the database of the test. See
// tests/support/WorkstationPrograms.h.

#include "base/Environment.h"
#include "base/Error.h"
#include "core/CartStore.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"
#include "data/Transfer.h"
#include "database/SqliteEngine.h"
#include "database/odbc/OdbcEngine.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"
#include "host/TransferOutcome.h"
#include "tests/support/FakeSession.h"
#include "tests/support/IgnoredErrorLog.h"
#include "tests/support/RawDatabase.h"
#include "tests/support/WorkstationReport.h"

#include <unistd.h>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>

namespace quellbrook::testing {
namespace {

using Report = WorkstationReport;

class Workstation {
public:
    explicit Workstation(int number) : m_random(static_cast<unsigned>(number)) {
        constexpr int mostAttempts = 1'000'000;
        m_report.workstation = number;
        m_report.number = number * mostAttempts;
        m_items[0] = Keys("SELECT PropertyNo FROM Property");
        m_items[1] = Keys("SELECT VehicleNo FROM Vehicle");
    }

    // Writes batches of 1 to 20 items. A refused batch is put together again.
    void Transfer(int batches) {
        for (int written = 0; written < batches;) {
            CartItems items;
            TransferData xfer;
            try {
                items = SomeItems();
                xfer.Location = AnyLocation();
            } catch (const Error&) {
                continue;  // the server does not run
            }
            xfer.DateReceived = xfer.Timestamp();
            xfer.ReceivedFrom = ++m_report.number;
            if (Attempt([&] { ExecuteTransfer(items, xfer); })) ++written;
        }
    }

    // Tries changes of all kinds. The names differ only in case, so that some are taken.
    void ChangeLocations(int changes) {
        for (int i = 0; i < changes; ++i) {
            GetStorageLocationStatic().Refresh();
            const StorageLocationRef location = AnyLocation();
            const StorageLocationRef other = AnyOf(5) == 0 ? AnyRoot() : AnyLocation();
            const std::string name = std::string(AnyOf(2) == 0 ? "Bin " : "BIN ") + std::to_string(AnyOf(10));
            m_report.itemCount = 0;
            ++m_report.number;
            const std::function<void()> operations[] = {[&] { location->Move(other); }, [&] { location->Rename(name); },
                                                        [&] { other->CreateSubLocation(name); },
                                                        [&] { location->Delete(); }};
            Attempt(operations[AnyOf(std::size(operations))]);
        }
    }

private:
    static std::vector<int32_t> Keys(const std::string& query) {
        std::vector<int32_t> keys;
        for (const Row& row : GetHostDatabase().QueryRows(query)) keys.push_back(ToInt32(row.At(0)));
        return keys;
    }

    size_t AnyOf(size_t count) { return m_random() % count; }

    StorageLocationRef AnyRoot() {
        constexpr StorageLocationTypes types[] = {StorageLocationTypes::Internal, StorageLocationTypes::External};
        return GetStorageLocationStatic().GetRoot(types[AnyOf(std::size(types))]);
    }
    StorageLocationRef AnyLocation() {
        while (true) {
            const std::vector<int32_t> keys = Keys("SELECT IdNo FROM StorageLocation");
            const StorageLocationRef location = GetStorageLocationStatic().FindByID(keys.at(AnyOf(keys.size())));
            if (location) return location;
            GetStorageLocationStatic().Refresh();
        }
    }

    CartItems SomeItems() {
        CartItems items;
        m_report.itemCount = 0;
        for (size_t i = 0, count = 1 + AnyOf(Report::MostItems); i < count; ++i) {
            const bool isVehicle = AnyOf(10) == 9;
            const std::vector<int32_t>& keys = m_items[isVehicle ? 1 : 0];
            const std::string key = std::to_string(keys.at(AnyOf(keys.size())));
            const auto type = isVehicle ? NumberSearchTypes::VehiclePK : NumberSearchTypes::PropertyPK;
            const StoredItemRef item = StoredItemSearch().WithNumber(type, key).Execute()->ItemAt(0);
            if (!items.TryAdd(item)) continue;
            m_report.items.at(static_cast<size_t>(m_report.itemCount++)) = {static_cast<int32_t>(item->ItemType()),
                                                                            item->ID(), ToInt32(item->CurrTrackSeq())};
        }
        return items;
    }

    // Reports the attempt; returns whether it did not fail.
    bool Attempt(const std::function<void()>& attempt) {
        Tell(Report::Kind::Begins);
        try {
            attempt();
            Tell(Report::Kind::Written);
            return true;
        } catch (const UnknownOutcome& failure) {
            Tell(Report::Kind::Unknown, failure.Description());
        } catch (const Error& failure) {
            Tell(Report::Kind::Refused, failure.Description());
        }
        return false;
    }

    void Tell(Report::Kind kind, const std::string& text = "") {
        m_report.kind = kind;
        m_report.text = {};
        std::strncpy(m_report.text.data(), text.c_str(), m_report.text.size() - 1);
        if (write(WorkstationReportPipe, &m_report, sizeof m_report) != sizeof m_report) _exit(1);
    }

    std::mt19937 m_random;
    std::array<std::vector<int32_t>, 2> m_items;
    Report m_report{};
};

void Run(const std::string& task, int number, int count, const std::string& path) {
    const SessionScope session;
    HostServices::Current().SetEngine(path.empty() ? std::shared_ptr<Engine>(OdbcEngine::Open(TestServer()))
                                                   : SqliteEngine::Open(path));
    Workstation workstation(number);
    task == TransferTask ? workstation.Transfer(count) : workstation.ChangeLocations(count);
    HostServices::Current().SetEngine(nullptr);
}

// Returns the exit status.
int RunLogged(char** arguments) {
    IgnoredErrorLog log;
    EnvironmentScope environment;
    environment->errorLog = &log;
    try {
        Run(arguments[1], std::atoi(arguments[2]), std::atoi(arguments[3]), arguments[4]);
        return 0;
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
        return 1;
    }
}

}  // namespace
}  // namespace quellbrook::testing

// workstation TASK NUMBER COUNT PATH; an empty path stands for the server of the test.
int main(int argc, char** argv) { return argc == 5 ? quellbrook::testing::RunLogged(argv) : 2; }
