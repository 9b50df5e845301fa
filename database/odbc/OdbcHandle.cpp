#include "database/odbc/OdbcHandle.h"

#include "base/Error.h"

#include <sql.h>
#include <sqlext.h>

namespace quellbrook {

OdbcHandle::OdbcHandle(Kind kind, void* parent) : m_kind(kind) {
    if (SQL_SUCCEEDED(SQLAllocHandle(static_cast<SQLSMALLINT>(kind), parent, &m_handle))) return;
    Raise(ErrorNumber::General, "OdbcHandle", "The ODBC driver manager has no handle left.");
}

OdbcHandle::~OdbcHandle() { SQLFreeHandle(static_cast<SQLSMALLINT>(m_kind), m_handle); }

}  // namespace quellbrook
