#include "benchmarks/OdbcBaseline.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace quellbrook::bench {

namespace {

using Text = std::array<char, 512>;

void Check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    SQLCHAR state[6] = {}, message[1024] = {};
    SQLGetDiagRec(kind, handle, 1, state, nullptr, message, sizeof message, nullptr);
    throw std::runtime_error(reinterpret_cast<const char*>(message));
}

SQLCHAR* Characters(const std::string& text) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str())); }

// A statement handle for one run.
class Run {
public:
    Run(SQLHDBC connection, const std::string& text) {
        SQLAllocHandle(SQL_HANDLE_STMT, connection, &m_handle);
        Check(SQLExecDirect(m_handle, Characters(text), SQL_NTS), SQL_HANDLE_STMT, m_handle);
    }
    ~Run() { SQLFreeHandle(SQL_HANDLE_STMT, m_handle); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    bool Fetch() { return SQL_SUCCEEDED(SQLFetch(m_handle)); }
    void Drain() {
        SQLRETURN result = SQL_SUCCESS;
        while ((result = SQLMoreResults(m_handle)) != SQL_NO_DATA) Check(result, SQL_HANDLE_STMT, m_handle);
    }
    SQLHSTMT Handle() const { return m_handle; }

private:
    SQLHSTMT m_handle = nullptr;
};

std::string ReadText(SQLHSTMT handle, SQLUSMALLINT column) {
    Text text{};
    SQLLEN length = 0;
    SQLGetData(handle, column, SQL_C_CHAR, text.data(), text.size(), &length);
    return length == SQL_NULL_DATA ? "" : text.data();
}

int32_t ReadInteger(SQLHSTMT handle, SQLUSMALLINT column) {
    SQLINTEGER number = 0;
    SQLLEN length = 0;
    SQLGetData(handle, column, SQL_C_SLONG, &number, sizeof number, &length);
    return length == SQL_NULL_DATA ? 0 : number;
}

double ReadNumber(SQLHSTMT handle, SQLUSMALLINT column) {
    double number = 0;
    SQLLEN length = 0;
    SQLGetData(handle, column, SQL_C_DOUBLE, &number, sizeof number, &length);
    return length == SQL_NULL_DATA ? 0 : number;
}

}  // namespace

OdbcBaseline::OdbcBaseline(const std::string& connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &m_environment);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
    Check(SQLDriverConnect(m_connection, nullptr, Characters(connectionString), SQL_NTS, nullptr, 0, nullptr,
                           SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, m_connection);
}

OdbcBaseline::~OdbcBaseline() {
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

void OdbcBaseline::Run(const std::string& text) { bench::Run(m_connection, text).Drain(); }

std::vector<int32_t> OdbcBaseline::Integers(const std::string& query) {
    std::vector<int32_t> numbers;
    bench::Run run(m_connection, query);
    while (run.Fetch()) numbers.push_back(ReadInteger(run.Handle(), 1));
    return numbers;
}

std::vector<std::string> OdbcBaseline::Texts(const std::string& query) {
    std::vector<std::string> texts;
    bench::Run run(m_connection, query);
    while (run.Fetch()) texts.push_back(ReadText(run.Handle(), 1));
    return texts;
}

struct OdbcBaseline::Query::Value {
    Text text{};
    SQLLEN length = SQL_NTS;
};

OdbcBaseline::Query::Query(OdbcBaseline& baseline, const std::string& text, bool isNumber)
    : m_handle(nullptr), m_value(std::make_unique<Value>()) {
    SQLAllocHandle(SQL_HANDLE_STMT, baseline.m_connection, &m_handle);
    Check(SQLPrepare(m_handle, Characters(text), SQL_NTS), SQL_HANDLE_STMT, m_handle);
    const auto count = static_cast<SQLUSMALLINT>(std::count(text.begin(), text.end(), '?'));
    for (SQLUSMALLINT i = 1; i <= count; ++i)
        Check(SQLBindParameter(m_handle, i, SQL_PARAM_INPUT, SQL_C_CHAR, isNumber ? SQL_INTEGER : SQL_VARCHAR,
                               m_value->text.size(), 0, m_value->text.data(), static_cast<SQLLEN>(m_value->text.size()),
                               &m_value->length),
              SQL_HANDLE_STMT, m_handle);
}

OdbcBaseline::Query::Query(Query&& other) noexcept
    : m_handle(std::exchange(other.m_handle, nullptr)), m_value(std::move(other.m_value)) {}

OdbcBaseline::Query::~Query() {
    if (m_handle) SQLFreeHandle(SQL_HANDLE_STMT, m_handle);
}

Baseline::Items OdbcBaseline::Query::Read(const std::string& value) {
    std::strncpy(m_value->text.data(), value.c_str(), m_value->text.size() - 1);
    Check(SQLExecute(m_handle), SQL_HANDLE_STMT, m_handle);
    Baseline::Items items;
    while (SQL_SUCCEEDED(SQLFetch(m_handle))) {
        auto item = std::make_unique<Baseline::Item>();
        item->itemType = ReadInteger(m_handle, 1);
        item->id = ReadInteger(m_handle, 2);
        item->category = ReadInteger(m_handle, 3);
        item->trackSeq = ReadInteger(m_handle, 4);
        item->location = ReadInteger(m_handle, 5);
        item->displayId = ReadText(m_handle, 6);
        item->description = ReadText(m_handle, 7);
        item->quantity = ReadNumber(m_handle, 8);
        item->value = ReadNumber(m_handle, 9);
        item->make = ReadText(m_handle, 10);
        item->model = ReadText(m_handle, 11);
        item->serial = ReadText(m_handle, 12);
        item->recordType = ReadInteger(m_handle, 13);
        items.push_back(std::move(item));
    }
    SQLFreeStmt(m_handle, SQL_CLOSE);
    return items;
}

}  // namespace quellbrook::bench
