#include "app/Options.h"

#include "base/Error.h"

#include <QCommandLineParser>

namespace quellbrook {

namespace {

constexpr int32_t largestSize = 2'000'000;
const QString sqliteScheme = QStringLiteral("sqlite:");
const QString odbcScheme = QStringLiteral("odbc:");

struct OptionDefinition {
    const char* name;
    const char* value;  // null for a flag
    const char* description;
};
constexpr OptionDefinition definitions[] = {
    {"database", "URL",
     "Open the department in this database: sqlite:PATH names a file, odbc:CONNECTION STRING a database on a server, "
     "PostgreSQL or SQL Server."},
    {"create", nullptr,
     "With --database odbc:CONNECTION STRING: create a department in that empty database and exit. With --sample, fill "
     "it with the sample department; with --size, with a generated one. Without them it has no account to log in."},
    {"sample", nullptr, "With --create: fill the database with the sample department."},
    {"size", "N", "Open a generated department of N items, up to 2000000. It is created on first use."},
    {"fresh", nullptr, "Work on a scratch copy that is deleted afterwards."},
    {"uncategorized", nullptr,
     "With --fresh or --tour: work on a small department whose locations have no category yet. The first log-in opens "
     "the wizard that categorizes them."},
    {"user", "NAME", "Log in as this user. Only the password is requested."},
    {"tour", "DIR",
     "Play a search, changes of locations, a transfer, a check-in, a disposal, the life of one item and the explorer's "
     "menu on a scratch copy of the sample with real key and mouse events. With --uncategorized: play the wizard. With "
     "--database odbc:CONNECTION STRING: create the sample in that empty database and play there. Write a picture of "
     "each step and tour.json to DIR. Requires a separate X server and xdotool."},
    {"register", nullptr,
     "Let this user's desktop open record addresses with this program, in the department that --database or --size "
     "names."},
    {"verify", nullptr,
     "Check every rule of the custody data in the department that --database or --size names, print what is wrong, and "
     "exit with 1 if anything is."},
    {"repair", nullptr,
     "Restore the side tables and triggers of that department, on a server only the side table CurrentPlace, then "
     "verify it."},
    {"help", nullptr, "Print this text."},
};

void Define(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Opens the evidence room of a department. Without options it opens the sample department, which is created on\n"
        "first use in the user's data directory."));
    for (const OptionDefinition& option : definitions)
        parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.description),
                          QString::fromLatin1(option.value)});
    parser.addPositionalArgument(
        QStringLiteral("address"),
        QStringLiteral("Show the record tessarine://miproperty/open/NUMBER or tessarine://mivehicle/open/NUMBER, in "
                       "the running program if it has the department open."),
        QStringLiteral("[address]"));
}

[[noreturn]] void Refuse(const QString& sentence) {
    Raise(ErrorNumber::General, "ParseOptions", sentence.toStdString());
}

void CheckSyntax(const QCommandLineParser& parser) {
    if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty())
        Refuse("Unknown option '" + QString(unknown[0].size() > 1 ? "--" : "-") + unknown[0] + "'. See --help.");
    if (const QString fault = parser.errorText(); !fault.isEmpty()) Refuse(fault);
    for (const OptionDefinition& option : definitions) {
        const QString name = QString::fromLatin1(option.name);
        if (option.value && parser.isSet(name) && parser.value(name).isEmpty())
            Refuse(QStringLiteral("Missing value after '--%1'.").arg(name));
    }
}

std::optional<std::string> ValueOf(const QCommandLineParser& parser, const char* option) {
    const QString name = QString::fromLatin1(option);
    return parser.isSet(name) ? std::optional(parser.value(name).toStdString()) : std::nullopt;
}

void ReadDatabase(const QCommandLineParser& parser, Options& options) {
    if (!parser.isSet(QStringLiteral("database"))) return;
    const QString value = parser.value(QStringLiteral("database"));
    const auto rest = [&](const QString& scheme) -> std::optional<std::string> {
        if (!value.startsWith(scheme) || value.size() == scheme.size()) return std::nullopt;
        return value.mid(scheme.size()).toStdString();
    };
    options.databasePath = rest(sqliteScheme);
    options.server = rest(odbcScheme);
    // A connection string may contain a password.
    if (!options.databasePath && !options.server)
        Refuse(QStringLiteral("'%1' is not a database. Write sqlite:PATH or odbc:CONNECTION STRING.")
                   .arg(value.startsWith(odbcScheme) ? odbcScheme : value));
}

std::optional<int32_t> SizeOf(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("size"))) return std::nullopt;
    const QString value = parser.value(QStringLiteral("size"));
    bool isNumber = false;
    const int32_t size = value.toInt(&isNumber);
    if (!isNumber || size < 1 || size > largestSize)
        Refuse(QStringLiteral("'%1' is not a valid size. Write a number of items from 1 to %2.")
                   .arg(value)
                   .arg(largestSize));
    return size;
}

std::optional<RecordAddress> RecordOf(const QCommandLineParser& parser, std::optional<Error>& refusal) {
    const QStringList addresses = parser.positionalArguments();
    for (const QString& address : addresses)
        if (!HasRecordScheme(address.toStdString()))
            Refuse(QStringLiteral("'%1' is neither an option nor the address of a record. See --help.").arg(address));
    if (addresses.size() > 1) Refuse(QStringLiteral("Only one record can be opened at a time."));
    if (addresses.isEmpty()) return std::nullopt;
    try {
        return ParseRecordAddress(addresses[0].toStdString());
    } catch (const Error& error) {
        refusal = error;
        return std::nullopt;
    }
}

void CheckCombination(const Options& options) {
    const bool opensRecord = options.record || options.refusedRecord;
    const bool namesDatabase = options.databasePath || options.server;
    if (options.create && !options.server)
        Refuse("--create needs --database odbc:CONNECTION STRING. A file is created on first use.");
    if (options.create && (options.fresh || options.uncategorized || options.user || options.tourDirectory ||
                           opensRecord || options.registerScheme || options.verify || options.repair))
        Refuse("--create opens no window. It can only be combined with --database, --sample and --size.");
    if (options.sample && !options.create)
        Refuse("--sample fills a database that --create creates. It needs --create.");
    if (options.sample && options.size)
        Refuse("--sample and --size are two departments. --create fills a database with one of them.");
    if (options.server && options.registerScheme) Refuse("--register works with a database file only.");
    if (namesDatabase && !options.create && (options.fresh || options.size))
        Refuse("--database opens an existing department. It can't be combined with --fresh or --size.");
    if (options.uncategorized && (options.size || !(options.fresh || options.tourDirectory)))
        Refuse(
            "--uncategorized selects another sample. It needs --fresh or --tour, and it can't be combined with "
            "--size.");
    if (options.registerScheme && (options.fresh || options.user || options.tourDirectory || opensRecord))
        Refuse("--register opens nothing. It can only be combined with --database or --size.");
    if ((options.verify || options.repair) &&
        (options.fresh || options.user || options.tourDirectory || opensRecord || options.registerScheme))
        Refuse("--verify and --repair open no window. They can only be combined with --database or --size.");
    if (options.tourDirectory && (opensRecord || options.databasePath || options.size || options.user))
        Refuse(
            "--tour plays on a scratch copy of the sample, or in an empty database on a server. It can't be combined "
            "with --database sqlite:PATH, --size, --user or the address of a record.");
}

}  // namespace

Options ParseOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    Define(parser);
    parser.parse(arguments);
    CheckSyntax(parser);
    Options options;
    ReadDatabase(parser, options);
    options.user = ValueOf(parser, "user");
    options.size = SizeOf(parser);
    options.tourDirectory = ValueOf(parser, "tour");
    options.record = RecordOf(parser, options.refusedRecord);
    options.create = parser.isSet(QStringLiteral("create"));
    options.sample = parser.isSet(QStringLiteral("sample"));
    options.fresh = parser.isSet(QStringLiteral("fresh"));
    options.uncategorized = parser.isSet(QStringLiteral("uncategorized"));
    options.registerScheme = parser.isSet(QStringLiteral("register"));
    options.verify = parser.isSet(QStringLiteral("verify"));
    options.repair = parser.isSet(QStringLiteral("repair"));
    options.help = parser.isSet(QStringLiteral("help"));
    if (!options.help) CheckCombination(options);
    return options;
}

std::string HelpText() {
    QCommandLineParser parser;
    Define(parser);
    return parser.helpText().toStdString();
}

}  // namespace quellbrook
