#include "component/Factories.h"

#include "component/EvidenceUI.h"
#include "component/PublicClasses.h"
#include "component/UseCount.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include <optional>

namespace quellbrook {

int64_t UseCount::s_count = 0;

namespace {

using ObjectMaker = std::shared_ptr<void> (*)();

template <typename T>
std::shared_ptr<void> MakeObject() {
    return std::make_shared<T>();
}

// A reference to something that counts as a use while it exists.
template <typename T>
std::shared_ptr<void> Counted(T* object) {
    const auto use = std::make_shared<UseCount>();
    return {use, object};
}

std::shared_ptr<void> ReferToSingletons() { return Counted(&GetSingletons()); }

std::shared_ptr<void> ReferToLocations() { return Counted(&GetStorageLocationStatic()); }

std::shared_ptr<void> MakeSearch() {
    struct CountedSearch {
        UseCount use;
        StoredItemSearch search;
    };
    const auto made = std::make_shared<CountedSearch>();
    return {made, &made->search};
}

std::shared_ptr<void> MakeEvidenceUI() {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return nullptr;
    struct CountedControl {
        UseCount use;
        QPointer<QWidget> control = CreateEvidenceUI(nullptr);
        ~CountedControl() { delete control; }
    };
    const auto made = std::make_shared<CountedControl>();
    return {made, made->control.data()};
}

// Counts references or locks. While the count is not 0, it adds one to UseCount.
class ReferenceCount {
public:
    // Both return the new count. Remove does nothing at 0.
    uint32_t Add() {
        if (m_count == 0) m_use.emplace();
        return ++m_count;
    }
    uint32_t Remove() {
        if (m_count > 0 && --m_count == 0) m_use.reset();
        return m_count;
    }
    bool IsEmpty() const { return m_count == 0; }

private:
    uint32_t m_count = 0;
    std::optional<UseCount> m_use;
};

class Factory final : public ClassFactory {
public:
    Factory(const char* classId, ObjectMaker make) : m_classId(classId), m_make(make) {}

    bool IsFor(std::string_view classId) const { return classId == m_classId; }

    int32_t QueryInterface(const char* interfaceId, void** object) override {
        if (!object) return ComponentResult::NullPointer;
        *object = nullptr;
        if (!interfaceId) return ComponentResult::NullPointer;
        const std::string_view id = interfaceId;
        if (id != InterfaceId::ClassFactory && id != InterfaceId::Unknown) return ComponentResult::NoInterface;
        AddRef();
        *object = static_cast<ClassFactory*>(this);
        return ComponentResult::Ok;
    }

    uint32_t AddRef() override { return m_references.Add(); }
    uint32_t Release() override { return m_references.Remove(); }

    int32_t CreateInstance(void* outer, std::shared_ptr<void>* object) override {
        if (!object) return ComponentResult::NullPointer;
        object->reset();
        if (outer) return ComponentResult::NoAggregation;
        *object = m_make();
        return *object ? ComponentResult::Ok : ComponentResult::Unexpected;
    }

    int32_t LockServer(bool isLocked) override {
        if (!isLocked && s_locks.IsEmpty()) return ComponentResult::Unexpected;
        isLocked ? s_locks.Add() : s_locks.Remove();
        return ComponentResult::Ok;
    }

private:
    const char* m_classId;
    ObjectMaker m_make;
    ReferenceCount m_references;
    inline static ReferenceCount s_locks;
};

}  // namespace

ClassFactory* FindFactory(std::string_view classId) {
    static Factory factories[] = {{ClassId::Singletons, ReferToSingletons},
                                  {ClassId::EvidenceUI, MakeEvidenceUI},
                                  {ClassId::StorageLocation, MakeObject<StorageLocation>},
                                  {ClassId::StorageLocationStatic, ReferToLocations},
                                  {ClassId::StoredItem, MakeObject<StoredItem>},
                                  {ClassId::StoredItemSearch, MakeSearch},
                                  {ClassId::IncidentInfo, MakeObject<IncidentInfo>},
                                  {ClassId::CaseInfo, MakeObject<CaseInfo>},
                                  {ClassId::TrackingRecord, MakeObject<TrackingRecord>}};
    for (Factory& factory : factories)
        if (factory.IsFor(classId)) return &factory;
    return nullptr;
}

}  // namespace quellbrook
