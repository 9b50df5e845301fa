#pragma once

#include <map>
#include <string>

namespace quellbrook {

// Which temporary tables of one connection are in use in a batch, and which only look dropped. A dropped one is emptied
// and set aside, and the next CREATE with the same text takes it again: since every change of the temporary schema
// makes SQLite prepare all statements anew, that is half the time of a small batch. Names are as the statements quote
// them.
class TemporaryTables {
public:
    // The name that stands in the CREATE or DROP, quotes included.
    static std::string NameIn(const std::string& statement);

    // Whether a table made by this text was set aside; then it is in use from now on.
    bool Take(const std::string& creation);
    // Whether a table of this name, made by any text, is set aside.
    bool IsSetAside(const std::string& name) const { return m_aside.count(name) > 0; }
    void Created(const std::string& creation);
    // Sets the table aside. False where it is none that was created or taken.
    bool SetAside(const std::string& name);
    void Forget(const std::string& name);

    void Commit();
    // What was created since the last Commit is gone, what was taken since then is set aside again.
    void Rollback();
    void Clear();

private:
    struct Table {
        std::string creation;
        bool isNew;  // not committed yet
    };
    std::map<std::string, Table> m_inUse;
    std::map<std::string, Table> m_aside;
};

}  // namespace quellbrook
