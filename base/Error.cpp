#include "base/Error.h"

#include <new>

namespace quellbrook {

std::string ErrorText(int32_t number) {
    switch (number) {
    case ErrorNumber::General: return "The operation could not be carried out.";
    case ErrorNumber::Overflow: return "The number is too large.";
    case ErrorNumber::SubscriptOutOfRange: return "There is no entry at this position.";
    case ErrorNumber::TypeMismatch: return "The value is of the wrong type.";
    case ErrorNumber::NullObject: return "A record that is needed for this is missing. Refresh and try again.";
    case ErrorNumber::InvalidUseOfNull: return "A value is missing.";
    case ErrorNumber::InvalidPropertyValue: return "Invalid property value.";
    case ErrorNumber::KeyTaken: return "This key is already in the collection.";
    case ErrorNumber::IntegrityViolation: return "The database refused this change to keep its records consistent.";
    default: return "An unexpected error occurred.";
    }
}

void Raise(int32_t number, std::string_view source, std::string_view description) {
    throw Error(number, std::string(source), std::string(description));
}

void Raise(int32_t number, std::string_view source) { throw Error(number, std::string(source), ErrorText(number)); }

Error ToError(std::exception_ptr exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return Error(ErrorNumber::General, "", "There is not enough memory. Close other programs and try again.");
    } catch (const std::exception& other) {
        return Error(ErrorNumber::General, "", other.what());
    } catch (...) {
        return Error(ErrorNumber::General, "", ErrorText(0));
    }
}

Error CurrentError() { return ToError(std::current_exception()); }

}  // namespace quellbrook
