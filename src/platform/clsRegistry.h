#pragma once

#include <QString>
#include <QVariant>

/// Which kinds of value a registry holds. The numbers are the interface.
enum class RegistryType : quint32
{
    None = 0,
    String = 1,
    ExpandableString = 2, ///< names of environment variables between "%" stand for their values
    Binary = 3,
    Number = 4,
    BigEndianNumber = 5,
    MultiString = 7, ///< texts with a NUL between them
};

/// Reads a value of a registry that is kept as a text file, in the form in which registries are exported:
///
///     [HKEY_CURRENT_USER\Software\Example]
///     "Start Page"="http://example.org/"
///     "Count"=dword:0000002a
///     "Path"=hex(2):25,00,48,00,25,00,00,00
///
/// Names are compared without regard to case, as registries do.
class clsRegistry
{
public:
    static constexpr quint32 currentUser = 0x80000001;

    /// The file need not exist.
    explicit clsRegistry(const QString &file) : m_file(file) {}

    quint32 ClassKey = currentUser;
    QString SectionKey; ///< the path below the class, with "\"
    QString ValueKey;
    QVariant Default;                            ///< stands for a value that cannot be read
    RegistryType ValueType = RegistryType::None; ///< of the value read last

    /// A text, a number (quint32), or the bytes of a value of another type.
    [[nodiscard]] QVariant Value();

private:
    QString m_file;
};
