#include "database/odbc/OdbcStatement.h"

#include "base/Error.h"
#include "database/odbc/OdbcError.h"
#include "database/odbc/OdbcText.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <limits>
#include <type_traits>

namespace quellbrook {

namespace {

constexpr size_t textBlock = 2048;
constexpr size_t digitsBlock = 128;

SQLPOINTER AsPointer(SQLULEN number) { return reinterpret_cast<SQLPOINTER>(number); }

ColumnKind KindOf(short type, ServerKind server) {
    switch (type) {
    case SQL_BIT: return ColumnKind::Boolean;
    case SQL_SMALLINT: return server == ServerKind::PostgreSql ? ColumnKind::Boolean : ColumnKind::WholeNumber;
    case SQL_TINYINT:
    case SQL_INTEGER:
    case SQL_BIGINT: return ColumnKind::WholeNumber;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE: return ColumnKind::Number;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP: return ColumnKind::Date;
    default: return ColumnKind::Text;
    }
}

DateTime ToDateTime(const SQL_TIMESTAMP_STRUCT& timestamp) {
    constexpr SQLUINTEGER nanosecondsOfMillisecond = 1'000'000;
    return DateTime::FromParts({timestamp.year, timestamp.month, timestamp.day, timestamp.hour, timestamp.minute,
                                timestamp.second, static_cast<int>(timestamp.fraction / nanosecondsOfMillisecond)});
}

}  // namespace

OdbcStatement::OdbcStatement(const OdbcHandle& connection, ServerKind server, int limitSeconds)
    : m_handle(OdbcHandle::Kind::Statement, connection.Get()), m_server(server) {
    // Drivers that do not know one of these work without it.
    SQLSetStmtAttr(m_handle.Get(), SQL_ATTR_QUERY_TIMEOUT, AsPointer(static_cast<SQLULEN>(limitSeconds)), 0);
    SQLSetStmtAttr(m_handle.Get(), SQL_ATTR_NOSCAN, AsPointer(SQL_NOSCAN_ON), 0);
}

void OdbcStatement::Check(int result, const char* source) {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) RaiseOdbcError(m_handle, source);
}

void OdbcStatement::Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    const char* const source = "OdbcStatement.Execute";
    m_parameters.Bind(m_handle.Get(), parameters, m_server);
    std::u16string text = ToUtf16(sql);
    Check(
        SQLExecDirectW(m_handle.Get(), reinterpret_cast<SQLWCHAR*>(text.data()), static_cast<SQLINTEGER>(text.size())),
        source);
}

void OdbcStatement::Prepare(const std::string& sql) {
    std::u16string text = ToUtf16(sql);
    Check(SQLPrepareW(m_handle.Get(), reinterpret_cast<SQLWCHAR*>(text.data()), static_cast<SQLINTEGER>(text.size())),
          "OdbcStatement.Prepare");
}

void OdbcStatement::RunPrepared(const std::vector<TaggedValue>& parameters) {
    m_parameters.Bind(m_handle.Get(), parameters, m_server);
    Check(SQLExecute(m_handle.Get()), "OdbcStatement.Execute");
}

void OdbcStatement::Close() { SQLFreeStmt(m_handle.Get(), SQL_CLOSE); }

short OdbcStatement::CountColumns() {
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(m_handle.Get(), &count), "OdbcStatement.CountColumns");
    return count;
}

bool OdbcStatement::MoveToNextResult() {
    const SQLRETURN result = SQLMoreResults(m_handle.Get());
    Check(result, "OdbcStatement.MoveToNextResult");
    return result != SQL_NO_DATA;
}

bool OdbcStatement::FindRows() {
    if (!m_columns.empty()) return true;  // of an earlier run
    do {
        if (CountColumns() == 0) continue;
        DescribeColumns();
        return true;
    } while (MoveToNextResult());
    return false;
}

void OdbcStatement::Drain() {
    while (MoveToNextResult()) {
    }
}

void OdbcStatement::DescribeColumns() {
    constexpr SQLSMALLINT longestName = 256;
    m_columns.clear();
    std::vector<std::string> names;
    const short count = CountColumns();
    for (SQLUSMALLINT position = 1; position <= count; ++position) {
        std::array<SQLWCHAR, longestName> name{};
        SQLSMALLINT length = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        Check(SQLDescribeColW(m_handle.Get(), position, name.data(), longestName, &length, &type, &size, &digits,
                              &nullable),
              "OdbcStatement.DescribeColumns");
        m_columns.push_back({type, ToUtf8(reinterpret_cast<const char16_t*>(name.data()))});
        names.push_back(m_columns.back().name);
    }
    m_names = std::make_shared<const ColumnSet>(std::move(names));
}

std::vector<ColumnDescription> OdbcStatement::Describe() {
    std::vector<ColumnDescription> columns;
    for (const Column& column : m_columns) columns.push_back({column.name, KindOf(column.type, m_server)});
    return columns;
}

RowList OdbcStatement::Fetch(size_t limit) {
    RowList rows;
    while (rows.size() < limit) {
        const SQLRETURN result = SQLFetch(m_handle.Get());
        Check(result, "OdbcStatement.Fetch");
        if (result == SQL_NO_DATA) break;
        std::vector<TaggedValue> values;
        values.reserve(m_columns.size());
        for (size_t i = 0; i < m_columns.size(); ++i)
            values.push_back(Read(static_cast<unsigned short>(i + 1), m_columns[i].type));
        rows.emplace_back(m_names, std::move(values));
    }
    return rows;
}

std::vector<RowList> OdbcStatement::FetchAll(std::vector<Columns>& known) {
    std::vector<RowList> results;
    do {
        if (CountColumns() == 0) continue;
        if (results.size() == known.size()) {
            DescribeColumns();
            known.push_back({m_columns, m_names});
        }
        m_columns = known[results.size()].columns;
        m_names = known[results.size()].names;
        results.push_back(Fetch(std::numeric_limits<size_t>::max()));
    } while (MoveToNextResult());
    return results;
}

TaggedValue OdbcStatement::Read(unsigned short position, short type) {
    switch (type) {
    case SQL_BIT: return ReadPlain<unsigned char>(position, SQL_C_BIT);
    case SQL_SMALLINT: {
        const TaggedValue number = ReadPlain<SQLINTEGER>(position, SQL_C_SLONG);
        const bool isFlag = m_server == ServerKind::PostgreSql && !number.IsNull();
        return isFlag ? TaggedValue(ToBool(number)) : number;
    }
    case SQL_TINYINT:
    case SQL_INTEGER: return ReadPlain<SQLINTEGER>(position, SQL_C_SLONG);
    case SQL_BIGINT: return ReadPlain<SQLBIGINT>(position, SQL_C_SBIGINT);
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE: return ReadPlain<double>(position, SQL_C_DOUBLE);
    case SQL_DECIMAL:
    case SQL_NUMERIC: return ReadNumber(position);
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP: return ReadPlain<SQL_TIMESTAMP_STRUCT>(position, SQL_C_TYPE_TIMESTAMP);
    default: return ReadText(position);
    }
}

template <typename Number>
TaggedValue OdbcStatement::ReadPlain(unsigned short position, short cType) {
    Number value{};
    SQLLEN length = 0;
    Check(SQLGetData(m_handle.Get(), position, cType, &value, sizeof value, &length), "OdbcStatement.Read");
    if (length == SQL_NULL_DATA) return Null();
    if constexpr (std::is_same_v<Number, unsigned char>)
        return value != 0;
    else if constexpr (std::is_same_v<Number, SQL_TIMESTAMP_STRUCT>)
        return ToDateTime(value);
    else if constexpr (std::is_same_v<Number, SQLBIGINT>)
        return TaggedValue::FromInteger(value);
    else
        return value;
}

TaggedValue OdbcStatement::ReadNumber(unsigned short position) {
    std::array<char, digitsBlock> text{};
    SQLLEN length = 0;
    Check(SQLGetData(m_handle.Get(), position, SQL_C_CHAR, text.data(), text.size(), &length), "OdbcStatement.Read");
    if (length == SQL_NULL_DATA) return Null();
    return NumberFromText(text.data());
}

TaggedValue OdbcStatement::ReadText(unsigned short position) {
    std::u16string text;
    std::array<char16_t, textBlock> block{};
    while (true) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(m_handle.Get(), position, SQL_C_WCHAR, block.data(), sizeof block, &length);
        Check(result, "OdbcStatement.Read");
        if (result == SQL_NO_DATA) break;
        if (length == SQL_NULL_DATA) return Null();
        // A part that is followed by another fills the block, up to the NUL at its end.
        const bool isPart = length == SQL_NO_TOTAL || length >= static_cast<SQLLEN>(sizeof block);
        text.append(block.data(), isPart ? textBlock - 1 : static_cast<size_t>(length) / sizeof(char16_t));
        if (!isPart) break;
    }
    return ToUtf8(text);
}

}  // namespace quellbrook
