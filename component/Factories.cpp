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

    uint32_t AddRef() override {
        if (m_references == 0) m_use.emplace();
        return ++m_references;
    }

    uint32_t Release() override {
        if (m_references == 0) return 0;
        if (--m_references == 0) m_use.reset();
        return m_references;
    }

    int32_t CreateInstance(void* outer, std::shared_ptr<void>* object) override {
        if (!object) return ComponentResult::NullPointer;
        object->reset();
        if (outer) return ComponentResult::NoAggregation;
        *object = m_make();
        return *object ? ComponentResult::Ok : ComponentResult::Unexpected;
    }

    int32_t LockServer(bool isLocked) override {
        if (!isLocked && s_locks == 0) return ComponentResult::Unexpected;
        s_locks = isLocked ? s_locks + 1 : s_locks - 1;
        if (s_locks == 0)
            s_lock.reset();
        else if (!s_lock)
            s_lock.emplace();
        return ComponentResult::Ok;
    }

private:
    const char* m_classId;
    ObjectMaker m_make;
    uint32_t m_references = 0;
    std::optional<UseCount> m_use;  // while there are references
    inline static uint32_t s_locks = 0;
    inline static std::optional<UseCount> s_lock;  // while there are locks
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
