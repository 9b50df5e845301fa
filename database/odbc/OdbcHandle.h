#pragma once

namespace quellbrook {

// Owns a handle of the ODBC interface.
class OdbcHandle {
public:
    enum class Kind : short { Environment = 1, Connection = 2, Statement = 3 };

    // The parent is null for an environment, and must outlive this object. Raises error 5 if there is no handle left.
    OdbcHandle(Kind kind, void* parent);
    ~OdbcHandle();
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;

    Kind GetKind() const { return m_kind; }
    void* Get() const { return m_handle; }

private:
    Kind m_kind;
    void* m_handle = nullptr;
};

}  // namespace quellbrook
