#include "base/Clock.h"
#include "base/Error.h"
#include "base/Text.h"
#include "data/RowDocuments.h"
#include "data/StorageLocationStatic.h"
#include "host/HostDatabase.h"
#include "host/TransferOutcome.h"

namespace quellbrook {

namespace {

constexpr const char* emptyLine = "\r\n\r\n";

std::string NumberText(int32_t number) { return std::to_string(number); }
std::string NumberText(StorageLocationTypes type) { return std::to_string(static_cast<int32_t>(type)); }
std::string Literal(const std::string& text) { return GetHostDatabase().PrepareText(text); }
std::string Literal(const LocationPath& path) { return Literal(path.ToText()); }
std::string AnyBelow(const LocationPath& path) { return GetHostDatabase().PrepareLike(path.ToText() + "*"); }

constexpr const char* unknownOutcome =
    "It could not be found out whether this change was completed. Refresh the locations before you go on.";

// Runs the work and turns any failure into Error 5 with the message from `sentence`.
template <typename Work, typename Sentence>
auto Guarded(const char* source, Work work, Sentence sentence) {
    try {
        return work();
    } catch (const UnknownOutcome& failure) {
        Raise(ErrorNumber::General, source, unknownOutcome + (emptyLine + failure.Description()));
    } catch (...) {
        Raise(ErrorNumber::General, source, sentence(CurrentError()));
    }
}

std::string NameTakenText(const std::string& name) {
    return "A location with the name '" + name + "' already exists here.";
}

std::unique_ptr<pugi::xml_document> MakeRow(const std::string& name, StorageLocationTypes type,
                                            const LocationPath& path, const DateTime& moment) {
    using List = std::vector<TaggedValue>;
    return CreateRowXmlNode("StorageLocation", List{"Name", "Type", "Path", "ActiveFlag", "DateEntered", "LastUpdated"},
                            List{name, static_cast<int32_t>(type), path.ToText(), true, moment, moment});
}

}  // namespace

bool StorageLocation::NameExists(const std::string& path, const std::string& name, StorageLocationTypes locationType,
                                 int32_t excludeId) {
    const TaggedValue count =
        GetHostDatabase().LookupValue("StorageLocation", "COUNT(IdNo) AS TotalCount",
                                      {"Path=" + Literal(path), "Name=" + Literal(name),
                                       "Type=" + NumberText(locationType), "IdNo <> " + NumberText(excludeId)});
    return ToInt32(count) > 0;
}

void StorageLocation::Move(const StorageLocationRef& newParent) {
    const char* const source = "StorageLocation.Move";
    if (IsRoot())
        Raise(ErrorNumber::General, source,
              "Cannot move '" + m_name + "' - it is a type of location, not an actual location.");
    RequireNotDeleted(source);
    Require(newParent, source);
    const auto move = [&] {
        const LocationPath selfChildren = m_path.Append(m_id);
        const LocationPath target = newParent->GetPath().Append(newParent->ID());
        const LocationPath proposed = target.Append(m_id);
        const StorageLocationTypes type = newParent->LocationType();
        if (proposed.HasRepeatedId())
            Raise(ErrorNumber::General, source,
                  "A location cannot be moved into itself or one of its own sublocations.");
        if (m_path.Equals(target) && m_type == type) return;
        if (NameExists(target.ToText(), m_name, type, 0))
            Raise(ErrorNumber::General, source,
                  "There is already a location with the name '" + m_name + "' in '" + newParent->Name() + "'. " +
                      emptyLine + "Rename this location or the other location already in '" + newParent->Name() +
                      "' before moving this location.");
        const std::string updateType = "UPDATE StorageLocation SET Type = " + NumberText(type);
        GetHostDatabase().ExecuteBatch(
            {updateType + ", Path = REPLACE(Path, " + Literal(selfChildren) + ", " + Literal(proposed) +
                 ") WHERE Path LIKE " + AnyBelow(selfChildren),
             updateType + ", Path = " + Literal(target) + " WHERE IdNo = " + NumberText(m_id)},
            {{{"SELECT IdNo FROM StorageLocation WHERE IdNo = ?", {m_id}}},
             [&](const std::vector<RowList>& results, const HostDatabase::BatchQuery&) {
                 if (results[0].empty()) Refresh();
                 RequireNotDeleted(source);
             }});
        Refresh();
    };
    Guarded(source, move, [&](const Error& error) {
        if (m_isDeleted) return error.Description();
        return "Could not move location '" + m_name + "' into '" + newParent->Name() + "'. " + emptyLine +
               error.Description();
    });
}

StorageLocationRef StorageLocation::CreateSubLocation(const std::string& name) {
    const char* const source = "StorageLocation.CreateSubLocation";
    RequireNotDeleted(source);
    const DateTime moment = GetClock().Now();
    const LocationPath path = m_path.Append(m_id);
    const auto create = [&] {
        Literal(name);  // rejects NUL, which would truncate the text in a row document
        const auto row = MakeRow(name, m_type, path, moment);
        const int32_t newId = GetHostDatabase().InsertRow("StorageLocation", "IdNo", row->document_element());
        m_locationData.Reload();
        return GetStorageLocationStatic().FindByID(newId);
    };
    const auto isTaken = [&] {
        try {
            return NameExists(path.ToText(), name, m_type, 0);
        } catch (...) {
            return false;  // the first failure is reported
        }
    };
    return Guarded(source, create, [&](const Error& error) {
        if (isTaken() || error.Number() == ErrorNumber::IntegrityViolation) return NameTakenText(name);
        return "Could not create location '" + name + "'. " + emptyLine + error.Description();
    });
}

void StorageLocation::SetEnabled(bool rhs) {
    const char* const source = "StorageLocation.SetEnabled";
    RequireNotDeleted(source);
    if (IsRoot()) Raise(ErrorNumber::General, source, "A root location cannot be disabled.");
    const auto setFlag = [&] {
        GetHostDatabase().ExecuteWithParameters("UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?",
                                                {rhs, m_id});
        Refresh();
        RequireNotDeleted(source);
    };
    Guarded(source, setFlag, [&](const Error& error) {
        if (m_isDeleted) return error.Description();
        return std::string("Could not ") + (rhs ? "enable" : "disable") + " this location." + emptyLine +
               error.Description();
    });
}

void StorageLocation::Rename(const std::string& newName) {
    const char* const source = "StorageLocation.Rename";
    if (IsRoot()) Raise(ErrorNumber::General, source, "Cannot rename this location.");
    RequireNotDeleted(source);
    if (Trim(newName).empty()) Raise(ErrorNumber::General, source, "New name cannot be blank.");
    const auto rename = [&] {
        GetHostDatabase().Execute("UPDATE StorageLocation SET Name = " + Literal(newName) +
                                  ", LastUpdated = " + GetHostDatabase().PrepareDate(GetClock().Now().ToText()) +
                                  " WHERE IdNo = " + NumberText(m_id));
        Refresh();
        RequireNotDeleted(source);
    };
    Guarded(source, rename, [&](const Error& error) {
        if (m_isDeleted) return error.Description();
        if (error.Number() == ErrorNumber::IntegrityViolation) return NameTakenText(newName);
        return "Could not rename location '" + newName + "'. " + emptyLine + error.Description();
    });
}

void StorageLocation::Delete() {
    const char* const source = "StorageLocation.Delete";
    if (IsRoot()) Raise(ErrorNumber::General, source, "Cannot delete this location.");
    RequireNotDeleted(source);
    const auto remove = [&] {
        const LocationPath children = m_path.Append(m_id);
        GetHostDatabase().ExecuteBatch({"DELETE FROM StorageLocation WHERE Path LIKE " + AnyBelow(children),
                                        "DELETE FROM StorageLocation WHERE IdNo = " + NumberText(m_id)});
        m_locationData.Reload();
        m_isDeleted = true;
    };
    Guarded(source, remove, [](const Error& error) {
        const std::string sentence = "Could not delete this location";
        if (error.Number() == ErrorNumber::IntegrityViolation)
            return sentence + " because this location (or one of its sublocations) is currently in use.";
        return sentence + ". " + emptyLine + error.Description();
    });
}

}  // namespace quellbrook
