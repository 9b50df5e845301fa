#pragma once

// The vocabulary of actions. Values equal their names; comments give the payload.
namespace quellbrook::ActionTypes {

inline constexpr const char* VIEW_NAVIGATE_TO = "VIEW_NAVIGATE_TO";                    // ViewState
inline constexpr const char* VIEW_GO_BACK = "VIEW_GO_BACK";                            // nothing
inline constexpr const char* CART_ADD_ITEMS = "CART_ADD_ITEMS";                        // ObjectList of StoredItem
inline constexpr const char* CART_REMOVE_ITEMS = "CART_REMOVE_ITEMS";                  // ObjectList of StoredItem
inline constexpr const char* CART_SET_TRANSACTION_TYPE = "CART_SET_TRANSACTION_TYPE";  // integer
inline constexpr const char* CART_PROCESS_TRANSACTION = "CART_PROCESS_TRANSACTION";    // never raised
inline constexpr const char* CART_CANCEL_TRANSACTION = "CART_CANCEL_TRANSACTION";      // nothing
inline constexpr const char* CART_TRANSACTION_SUCCESS = "CART_TRANSACTION_SUCCESS";    // TransferData just committed
inline constexpr const char* CART_TRANSACTION_FAILED = "CART_TRANSACTION_FAILED";      // text: the description
inline constexpr const char* CART_SET_TRANSFER_DATA = "CART_SET_TRANSFER_DATA";        // TransferData
inline constexpr const char* NOTIFY_USER = "NOTIFY_USER";                              // text: the toast
inline constexpr const char* LOADING_STARTED = "LOADING_STARTED";                      // nothing
inline constexpr const char* LOADING_FINISHED = "LOADING_FINISHED";                    // nothing
inline constexpr const char* LOCATION_CREATE_SUCCESS = "LOCATION_CREATE_SUCCESS";      // the new StorageLocation
inline constexpr const char* LOCATION_CREATE_FAILED = "LOCATION_CREATE_FAILED";        // text: the description

}  // namespace quellbrook::ActionTypes
