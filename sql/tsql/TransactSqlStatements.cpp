#include "sql/tsql/TransactSqlParser.h"
#include "sql/tsql/TransactSqlWords.h"

namespace quellbrook::sql {

// Statements

void StatementParser::Declaration() {
    m_parts.kind = StatementKind::Declaration;
    m_parts.subject = m_at;
    Expect(Is(TokenKind::Variable));
    ++m_at;
    TakeWord("AS");
    Type(false);
}

void StatementParser::Assignment() {
    m_parts.kind = StatementKind::Assignment;
    m_parts.subject = ++m_at;
    ++m_at;
    ExpectSign("=");
    Value();
    if (AtEnd()) RefuseTransactSql(m_tokens[m_parts.subject].text);
    ExpectWord("FROM");
    Source();
    if (TakeWord("WHERE")) Condition();
    if (!TakeWord("GROUP")) return;
    ExpectWord("BY");
    Name();
}

void StatementParser::Creation() {
    m_parts.kind = StatementKind::Creation;
    ExpectWord("TABLE");
    m_parts.subject = m_at;
    Expect(Is(TokenKind::Temporary));
    const size_t opening = ++m_at;
    ExpectSign("(");
    do {
        Name();
        Type(true);
        if (TakeWord("NOT"))
            ExpectWord("NULL");
        else
            TakeWord("NULL");
    } while (TakeSign(","));
    ExpectClosing(opening);
}

void StatementParser::Removal() {
    m_parts.kind = StatementKind::Removal;
    ExpectWord("TABLE");
    m_parts.subject = m_at;
    Expect(Is(TokenKind::Temporary));
    ++m_at;
}

void StatementParser::Insertion() {
    m_parts.kind = StatementKind::Change;
    ExpectWord("INTO");
    m_parts.subject = m_at;
    TableName();
    if (TakeWord("DEFAULT")) return ExpectWord("VALUES");
    if (IsSign("(")) ColumnNames();
    if (IsWord("SELECT")) return Query();
    ExpectWord("VALUES");
    do Values();
    while (TakeSign(","));
}

void StatementParser::Update() {
    m_parts.kind = StatementKind::Change;
    m_parts.subject = m_at;
    TableName();
    ExpectWord("SET");
    do {
        Name();
        ExpectSign("=");
        Value();
    } while (TakeSign(","));
    if (TakeWord("WHERE")) Condition();
}

void StatementParser::Deletion() {
    m_parts.kind = StatementKind::Change;
    ExpectWord("FROM");
    m_parts.subject = m_at;
    TableName();
    if (TakeWord("WHERE")) Condition();
}

void StatementParser::SortedQuery() {
    m_parts.kind = StatementKind::Query;
    Query();
    if (!TakeWord("ORDER")) return;
    ExpectWord("BY");
    do Sorting();
    while (TakeSign(","));
}

void StatementParser::Sorting() {
    if (Is(TokenKind::Number) && Ahead()->text.find_first_not_of("0123456789") == std::string_view::npos)
        ++m_at;
    else
        Column();
    const bool isDescending = TakeWord("DESC");
    if (!isDescending) TakeWord("ASC");
    m_parts.sortTerms.push_back({m_at - 1, isDescending});
}

// Queries

void StatementParser::Query() {
    Select();
    while (TakeWord("UNION")) {
        TakeWord("ALL");
        Select();
    }
}

void StatementParser::Select() {
    ExpectWord("SELECT");
    TakeWord("DISTINCT");
    bool hasStar = false;
    do ResultColumn(hasStar);
    while (TakeSign(","));
    if (TakeWord("FROM"))
        Source();
    else if (hasStar)
        Refuse();
    if (TakeWord("WHERE")) Condition();
    if (TakeWord("GROUP")) Grouping();
}

void StatementParser::ResultColumn(bool& hasStar) {
    const bool isStarOfTable = IsSign(".", 1) && IsSign("*", 2);
    if (IsSign("*") || isStarOfTable) {
        hasStar = true;
        if (isStarOfTable) {
            Name();
            ++m_at;
        }
        ++m_at;
        return;
    }
    Value();
    if (!TakeWord("AS")) return;
    if (!Is(TokenKind::Text)) return Name();
    m_parts.textAliases.push_back(m_at++);
}

void StatementParser::Source() {
    Table();
    while (TakeJoin()) {
    }
}

bool StatementParser::TakeJoin() {
    if (TakeWord("CROSS")) {
        ExpectWord("JOIN");
        Table();
        return true;
    }
    if (TakeWord("LEFT"))
        TakeWord("OUTER");
    else if (!TakeWord("INNER") && !IsWord("JOIN"))
        return false;
    ExpectWord("JOIN");
    Table();
    ExpectWord("ON");
    Condition();
    return true;
}

void StatementParser::Table() {
    const size_t opening = m_at;
    if (!TakeSign("(")) {
        TableName();
        if (TakeWord("AS") || (Is(TokenKind::Word) && !IsReserved(*Ahead())) || Is(TokenKind::QuotedName)) Name();
        return;
    }
    const Level level(*this);
    if (IsWord("SELECT")) {
        Query();
        ExpectClosing(opening);
        TakeWord("AS");
        return Name();
    }
    Table();
    Expect(TakeJoin());
    while (TakeJoin()) {
    }
    ExpectClosing(opening);
}

void StatementParser::Grouping() {
    ExpectWord("BY");
    do Column();
    while (TakeSign(","));
    if (TakeWord("HAVING")) Condition();
}

}  // namespace quellbrook::sql
