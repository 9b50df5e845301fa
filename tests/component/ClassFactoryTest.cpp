#include "component/ClassFactory.h"

#include "base/Error.h"
#include "component/PublicClasses.h"
#include "component/Quellbrook.h"
#include "host/HostServices.h"
#include "tests/support/FakeSession.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <QPointer>
#include <QWidget>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

constexpr const char* allClasses[] = {
    ClassId::Singletons,    ClassId::EvidenceUI,       ClassId::StorageLocation, ClassId::StorageLocationStatic,
    ClassId::StoredItem,    ClassId::StoredItemSearch, ClassId::IncidentInfo,    ClassId::CaseInfo,
    ClassId::TrackingRecord};

// Releases its factory.
class Factory {
public:
    explicit Factory(const char* classId) {
        void* object = nullptr;
        EXPECT_EQ(DllGetClassObject(classId, InterfaceId::ClassFactory, &object), ComponentResult::Ok);
        m_factory = static_cast<ClassFactory*>(object);
    }
    ~Factory() { m_factory->Release(); }
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;
    ClassFactory* operator->() const { return m_factory; }

    template <typename T>
    std::shared_ptr<T> Create() const {
        std::shared_ptr<void> object;
        EXPECT_EQ(m_factory->CreateInstance(nullptr, &object), ComponentResult::Ok);
        return std::static_pointer_cast<T>(object);
    }

private:
    ClassFactory* m_factory;
};

bool CanUnload() {
    const int32_t result = DllCanUnloadNow();
    EXPECT_TRUE(result == ComponentResult::Ok || result == ComponentResult::False) << result;
    return result == ComponentResult::Ok;
}

TEST(ClassFactories, EveryPublicClassHasOne) {
    const TestDatabase database;
    const SessionScope session;
    Startup();
    for (const char* classId : allClasses) {
        const Factory factory(classId);
        std::shared_ptr<void> object;
        EXPECT_EQ(factory->CreateInstance(nullptr, &object), ComponentResult::Ok) << classId;
        EXPECT_NE(object, nullptr) << classId;
    }
    Shutdown();
}

TEST(ClassFactories, AClassObjectOfAnotherClassOrInterfaceIsRefused) {
    int any = 0;
    void* object = &any;
    EXPECT_EQ(DllGetClassObject("47486c07-9328-4b97-94fb-32a5a1f9d0ff", InterfaceId::ClassFactory, &object),
              ComponentResult::ClassNotAvailable);
    EXPECT_EQ(object, nullptr);
    object = &any;
    EXPECT_EQ(DllGetClassObject(ClassId::StoredItem, ClassId::StoredItem, &object), ComponentResult::NoInterface);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(DllGetClassObject(nullptr, InterfaceId::ClassFactory, &object), ComponentResult::NullPointer);
    EXPECT_EQ(DllGetClassObject(ClassId::StoredItem, nullptr, &object), ComponentResult::NullPointer);
    EXPECT_EQ(DllGetClassObject(ClassId::StoredItem, InterfaceId::ClassFactory, nullptr), ComponentResult::NullPointer);
    EXPECT_TRUE(CanUnload());
}

TEST(ClassFactories, BothInterfacesAreTheFactory) {
    const Factory factory(ClassId::StoredItem);
    void* unknown = nullptr;
    ASSERT_EQ(factory->QueryInterface(InterfaceId::Unknown, &unknown), ComponentResult::Ok);
    std::shared_ptr<void> object;
    EXPECT_EQ(static_cast<ClassFactory*>(unknown)->CreateInstance(nullptr, &object), ComponentResult::Ok);
    EXPECT_EQ(static_cast<ClassFactory*>(unknown)->Release(), 1u);
}

TEST(ClassFactories, AnObjectWithinAnotherOneIsRefused) {
    const Factory factory(ClassId::StoredItem);
    int outer = 0;
    auto object = std::shared_ptr<void>(std::make_shared<int>());
    EXPECT_EQ(factory->CreateInstance(&outer, &object), ComponentResult::NoAggregation);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, nullptr), ComponentResult::NullPointer);
}

TEST(ClassFactories, TheGlobalObjectsExistOnce) {
    EXPECT_EQ(Factory(ClassId::Singletons).Create<Singletons>().get(), &GetSingletons());
    EXPECT_EQ(Factory(ClassId::StorageLocationStatic).Create<StorageLocationStatic>().get(),
              &GetStorageLocationStatic());
    EXPECT_NE(Factory(ClassId::StoredItem).Create<StoredItem>(), Factory(ClassId::StoredItem).Create<StoredItem>());
}

TEST(ClassFactories, ObjectsOfTheModelAreEmpty) {
    EXPECT_EQ(Factory(ClassId::StorageLocation).Create<StorageLocation>()->Name(), "");
    EXPECT_EQ(Factory(ClassId::StoredItem).Create<StoredItem>()->DisplayID(), "");
    EXPECT_EQ(Factory(ClassId::StoredItemSearch).Create<StoredItemSearch>()->Count(), 0);
    EXPECT_EQ(Factory(ClassId::IncidentInfo).Create<IncidentInfo>()->ID(), 0);
    EXPECT_EQ(Factory(ClassId::CaseInfo).Create<CaseInfo>()->CaseNumber(), "");
    const auto record = Factory(ClassId::TrackingRecord).Create<TrackingRecord>();
    EXPECT_EQ(RaisedBy([&] { record->Sequence(); }).Number(), ErrorNumber::NullObject);
}

TEST(ClassFactories, TheReferenceDeletesAControlThatNoParentHasDeleted) {
    const TestDatabase database;
    const SessionScope session;
    Startup();
    const Factory factory(ClassId::EvidenceUI);
    auto control = factory.Create<QWidget>();
    EXPECT_STREQ(control->metaObject()->className(), "quellbrook::EvidenceUI");
    QPointer<QWidget> watched = control.get();
    control.reset();
    EXPECT_FALSE(watched);
    control = factory.Create<QWidget>();
    {
        QWidget window;
        control->setParent(&window);
        watched = control.get();
    }
    EXPECT_FALSE(watched);
    control.reset();
    Shutdown();
}

TEST(ClassFactories, WhatAConstructorThrowsReachesTheHostAndLeavesNothing) {
    HostServices::Current().Reset();
    Startup();
    {
        const Factory factory(ClassId::EvidenceUI);
        std::shared_ptr<void> object;
        const Error error = RaisedBy([&] { factory->CreateInstance(nullptr, &object); });
        EXPECT_NE(error.Description().find("No database"), std::string::npos) << error.Description();
        EXPECT_EQ(object, nullptr);
    }
    Shutdown();
    EXPECT_TRUE(CanUnload());
}

TEST(ClassFactories, TheLibraryStaysWhileAnythingOfItIsInUse) {
    const TestDatabase database;
    const SessionScope session;
    ASSERT_TRUE(CanUnload());
    Startup();
    EXPECT_FALSE(CanUnload());
    for (const char* classId : allClasses) {
        std::shared_ptr<void> object;
        {
            const Factory factory(classId);
            factory->CreateInstance(nullptr, &object);
        }
        Shutdown();
        EXPECT_FALSE(CanUnload()) << classId;
        object.reset();
        EXPECT_TRUE(CanUnload()) << classId;
        Startup();
    }
    Shutdown();
    {
        const Factory factory(ClassId::StoredItem);
        EXPECT_FALSE(CanUnload());
        EXPECT_EQ(factory->AddRef(), 2u);
        EXPECT_EQ(factory->Release(), 1u);
        EXPECT_FALSE(CanUnload());
    }
    EXPECT_TRUE(CanUnload());
}

TEST(ClassFactories, WhatASearchHasFoundKeepsTheLibrary) {
    TestDatabase database;
    const SessionScope session;
    const int32_t shelf = database.AddLocation("Shelf", StorageLocationTypes::Internal);
    database.AddStored({.PropertyID = "A1"}, shelf);
    StoredItemRef item;
    {
        const auto search = Factory(ClassId::StoredItemSearch).Create<StoredItemSearch>();
        item = search->InLocation(GetStorageLocationStatic().FindByID(shelf)).Execute()->ItemAt(0);
    }
    EXPECT_FALSE(CanUnload());
    item.reset();
    EXPECT_TRUE(CanUnload());
    auto root = GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal);
    EXPECT_FALSE(CanUnload());
    root.reset();
    EXPECT_TRUE(CanUnload());
}

TEST(ClassFactories, LocksCountForAllFactories) {
    const auto lock = [](const char* classId, bool isLocked) { return Factory(classId)->LockServer(isLocked); };
    EXPECT_EQ(lock(ClassId::StoredItem, true), ComponentResult::Ok);
    EXPECT_EQ(lock(ClassId::CaseInfo, true), ComponentResult::Ok);
    EXPECT_FALSE(CanUnload());
    EXPECT_EQ(lock(ClassId::StoredItem, false), ComponentResult::Ok);
    EXPECT_FALSE(CanUnload());
    EXPECT_EQ(lock(ClassId::StoredItem, false), ComponentResult::Ok);
    EXPECT_TRUE(CanUnload());
    EXPECT_EQ(lock(ClassId::StoredItem, false), ComponentResult::Unexpected);
    EXPECT_TRUE(CanUnload());
}

TEST(ClassFactories, AReleasedFactoryHasNoReferenceToGiveBack) {
    void* object = nullptr;
    ASSERT_EQ(DllGetClassObject(ClassId::CaseInfo, InterfaceId::ClassFactory, &object), ComponentResult::Ok);
    auto* const factory = static_cast<ClassFactory*>(object);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_TRUE(CanUnload());
}

}  // namespace
}  // namespace quellbrook::testing
