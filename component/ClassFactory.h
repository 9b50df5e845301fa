#pragma once

#include <cstdint>
#include <memory>

namespace quellbrook {

// The results of the entry points and of class factories, with their usual values. Negative results are failures.
namespace ComponentResult {
inline constexpr int32_t Ok = 0;
inline constexpr int32_t False = 1;
inline constexpr int32_t NoInterface = static_cast<int32_t>(0x80004002u);
inline constexpr int32_t NullPointer = static_cast<int32_t>(0x80004003u);
inline constexpr int32_t Unexpected = static_cast<int32_t>(0x8000FFFFu);
inline constexpr int32_t NoAggregation = static_cast<int32_t>(0x80040110u);
inline constexpr int32_t ClassNotAvailable = static_cast<int32_t>(0x80040111u);
inline constexpr int32_t RegistrationFailed = static_cast<int32_t>(0x80040201u);
}  // namespace ComponentResult

// The identifiers of the public classes, as in the record that DllRegisterServer writes.
namespace ClassId {
inline constexpr char Singletons[] = "47486c07-9328-4b97-94fb-32a5a1f9d001";
inline constexpr char EvidenceUI[] = "47486c07-9328-4b97-94fb-32a5a1f9d002";
inline constexpr char StorageLocation[] = "47486c07-9328-4b97-94fb-32a5a1f9d003";
inline constexpr char StorageLocationStatic[] = "47486c07-9328-4b97-94fb-32a5a1f9d004";
inline constexpr char StoredItem[] = "47486c07-9328-4b97-94fb-32a5a1f9d005";
inline constexpr char StoredItemSearch[] = "47486c07-9328-4b97-94fb-32a5a1f9d006";
inline constexpr char IncidentInfo[] = "47486c07-9328-4b97-94fb-32a5a1f9d007";
inline constexpr char CaseInfo[] = "47486c07-9328-4b97-94fb-32a5a1f9d008";
inline constexpr char TrackingRecord[] = "47486c07-9328-4b97-94fb-32a5a1f9d009";
}  // namespace ClassId

// The interfaces that a class object has. Both are the ClassFactory.
namespace InterfaceId {
inline constexpr char Unknown[] = "00000000-0000-0000-c000-000000000046";
inline constexpr char ClassFactory[] = "00000001-0000-0000-c000-000000000046";
}  // namespace InterfaceId

// Creates objects of one public class. Reference-counted; DllGetClassObject returns it with one reference added.
class ClassFactory {
public:
    // Returns this factory in *object and adds a reference. On failure, *object is null and the result is NoInterface
    // or NullPointer.
    virtual int32_t QueryInterface(const char* interfaceId, void** object) = 0;
    // Both return the new number of references.
    virtual uint32_t AddRef() = 0;
    virtual uint32_t Release() = 0;
    // Returns a new object of the class in *object. Singletons and StorageLocationStatic are always the same object.
    // EvidenceUI is a QWidget without a parent; the last reference deletes it unless its parent has done so. The result
    // is NoAggregation if outer is not null, NullPointer if object is null, and Unexpected for EvidenceUI without a
    // QApplication. Exceptions of the constructor are passed on.
    virtual int32_t CreateInstance(void* outer, std::shared_ptr<void>* object) = 0;
    // Locks the library, so that DllCanUnloadNow returns False, or removes one lock. Unexpected if there is none.
    virtual int32_t LockServer(bool isLocked) = 0;

protected:
    ~ClassFactory() = default;
};

}  // namespace quellbrook

// The library's entry points, found by name, for the thread of the component only. Identifiers are compared as they are
// written above.
extern "C" {
// Writes the record of the class identifiers and of the path of this library: quellbrook/classes.ini in $XDG_DATA_HOME
// (~/.local/share without it); for root in /usr/local/share, or in the first folder of $XDG_DATA_DIRS if that does not
// have it. RegistrationFailed on failure.
int32_t DllRegisterServer() noexcept;
// Deletes the record if it exists. RegistrationFailed on failure.
int32_t DllUnregisterServer() noexcept;
// Returns the factory of the class in *object. On failure, *object is null and the result is ClassNotAvailable,
// NoInterface or NullPointer.
int32_t DllGetClassObject(const char* classId, const char* interfaceId, void** object) noexcept;
// Ok if no object, factory, lock or started component is left, so that the library may be unloaded; else False. Not
// counted are a ScanDropper, and what a host gets from its services, such as an engine: release them before.
int32_t DllCanUnloadNow() noexcept;
}
