#pragma once

#include "database/Connection.h"
#include "database/odbc/OdbcHandle.h"
#include "database/odbc/OdbcValues.h"

#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// One run of a statement text, which may consist of several statements, or a prepared statement that runs any number of
// times. Failures raise OdbcError.
class OdbcStatement {
public:
    // The connection must outlive this object. The server ends a statement that runs longer than the limit.
    OdbcStatement(const OdbcHandle& connection, ServerKind server, int limitSeconds);

    // Sends the text with one value for each "?" in order.
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters);
    // Prepares one statement; RunPrepared runs it with values of the same BoundTypes each time, and Close ends a run.
    void Prepare(const std::string& sql);
    void RunPrepared(const std::vector<TaggedValue>& parameters);
    void Close();
    // Goes on to the first result that has columns; false if there is none.
    bool FindRows();
    // Goes to the end of all results, so that an error of a later statement is noticed.
    void Drain();

    // Of the result with rows.
    std::vector<ColumnDescription> Describe();
    // The next rows, up to the limit. Fewer than the limit at the end. On PostgreSQL, small integers are booleans.
    RowList Fetch(size_t limit);

    struct Column {
        short type;
        std::string name;
    };
    struct Columns {
        std::vector<Column> columns;
        std::shared_ptr<const ColumnSet> names;
    };
    // All rows of each result that has columns, up to the end of all results. `known` has the columns of the results,
    // in order; those that are missing are described and added.
    std::vector<RowList> FetchAll(std::vector<Columns>& known);

private:
    void Check(int result, const char* source);
    short CountColumns();
    bool MoveToNextResult();
    void DescribeColumns();
    TaggedValue Read(unsigned short position, short type);
    TaggedValue ReadText(unsigned short position);
    TaggedValue ReadNumber(unsigned short position);
    template <typename Number>
    TaggedValue ReadPlain(unsigned short position, short cType);

    OdbcHandle m_handle;
    ServerKind m_server;
    OdbcParameters m_parameters;
    std::vector<Column> m_columns;
    std::shared_ptr<const ColumnSet> m_names;
};

}  // namespace quellbrook
