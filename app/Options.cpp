#include "app/Options.h"

#include "base/Error.h"
#include "base/Text.h"

namespace quellbrook {

namespace {

constexpr int32_t largestSize = 2'000'000;
constexpr std::string_view sqliteScheme = "sqlite:";

// Walks over the arguments; each Refuse ends the walk.
class Parser {
public:
    explicit Parser(const std::vector<std::string>& arguments) : m_arguments(arguments) {}

    std::variant<Options, OptionError> Run() {
        while (m_next < m_arguments.size()) {
            Take(m_arguments[m_next++]);
            if (!m_refusal.empty()) return OptionError{m_refusal};
        }
        CheckTogether();
        if (!m_refusal.empty()) return OptionError{m_refusal};
        return m_options;
    }

private:
    void Refuse(const std::string& sentence) {
        if (m_refusal.empty()) m_refusal = sentence;
    }

    void Take(const std::string& argument) {
        const size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        if (name == "--fresh" || name == "--help") {
            if (equals != std::string::npos) return Refuse("The option " + name + " takes no value.");
            (name == "--help" ? m_options.help : m_options.fresh) = true;
        } else if (name == "--gallery") {
            if (equals != std::string::npos) return Refuse("The option " + name + " takes no value.");
            m_options.gallery = true;
        } else if (name == "--database" || name == "--user" || name == "--size" || name == "--tour" ||
                   name == "--gallery-pictures") {
            std::string value;
            if (equals != std::string::npos) {
                value = argument.substr(equals + 1);
            } else if (m_next < m_arguments.size()) {
                value = m_arguments[m_next++];
            }
            if (value.empty()) return Refuse("The option " + name + " needs a value.");
            TakeValue(name, value);
        } else if (name == "--register") {
            if (equals != std::string::npos) return Refuse("The option " + name + " takes no value.");
            m_options.registerScheme = true;
        } else if (HasRecordScheme(argument)) {
            TakeRecord(argument);
        } else if (argument.rfind("--", 0) == 0) {
            Refuse("There is no option " + name + "; --help lists them all.");
        } else {
            Refuse("'" + argument + "' is no option; --help lists them all.");
        }
    }

    void TakeValue(const std::string& name, const std::string& value) {
        if (name == "--user") {
            m_options.user = value;
        } else if (name == "--tour") {
            m_options.tourDirectory = value;
        } else if (name == "--gallery-pictures") {
            m_options.galleryDirectory = value;
        } else if (name == "--size") {
            TakeSize(value);
        } else if (value.rfind(sqliteScheme, 0) != 0 || value.size() == sqliteScheme.size()) {
            Refuse("'" + value + "' names no database; write sqlite:PATH.");
        } else {
            m_options.databasePath = value.substr(sqliteScheme.size());
        }
    }

    void TakeRecord(const std::string& address) {
        if (m_options.record) return Refuse("One record can be opened at a time.");
        try {
            m_options.record = ParseRecordAddress(address);
        } catch (const Error& error) {
            Refuse(error.Description());
        }
    }

    void TakeSize(const std::string& value) {
        int32_t size = 0;
        try {
            size = ParseInt32(value);
        } catch (const Error&) {
            size = 0;
        }
        if (size < 1 || size > largestSize) {
            return Refuse("'" + value + "' is no size; write a number of items from 1 to " +
                          std::to_string(largestSize) + ".");
        }
        m_options.size = size;
    }

    void CheckTogether() {
        if (m_options.help) return;
        if ((m_options.gallery || m_options.galleryDirectory) && AsksForADepartment()) {
            Refuse("The gallery shows controls, not a department; it can't be combined with other options.");
        }
        if (m_options.databasePath && (m_options.fresh || m_options.size)) {
            Refuse("--database opens what stands there; it can't be combined with --fresh or --size.");
        }
        if (m_options.registerScheme &&
            (m_options.fresh || m_options.user || m_options.tourDirectory || m_options.record)) {
            Refuse("--register opens nothing; it can be combined with --database or --size alone.");
        }
        if (m_options.tourDirectory && m_options.record) {
            Refuse("--tour plays on a scratch copy of the sample; it can't be combined with the address of a record.");
        }
        if (m_options.tourDirectory && (m_options.databasePath || m_options.size || m_options.user)) {
            Refuse(
                "--tour plays on a scratch copy of the sample; it can't be combined with --database, --size or --user.");
        }
    }

    bool AsksForADepartment() const {
        return m_options.databasePath || m_options.user || m_options.size || m_options.tourDirectory ||
               m_options.record || m_options.fresh || m_options.registerScheme;
    }

    const std::vector<std::string>& m_arguments;
    size_t m_next = 0;
    Options m_options;
    std::string m_refusal;
};

}  // namespace

std::variant<Options, OptionError> ParseOptions(const std::vector<std::string>& arguments) {
    return Parser(arguments).Run();
}

std::string HelpText() {
    return "Opens the evidence room of a department; without options that of the sample department, which is made on\n"
           "first use in the user's data directory.\n"
           "\n"
           "  --database sqlite:PATH  opens the department in this database file\n"
           "  --size N                opens a generated department of N items, made on first use; up to 2000000\n"
           "  --fresh                 works on a scratch copy that is gone afterwards\n"
           "  --user NAME             logs in as this user; only the password is asked\n"
           "  --tour DIR              plays one transfer on a scratch copy of the sample, by real key and mouse events,\n"
           "                          and writes a picture of each step and tour.json into DIR; needs an X server of its\n"
           "                          own and xdotool\n"
           "  --gallery               shows every control in each of its states, light and dark; needs no department\n"
           "  --gallery-pictures DIR  writes the same as light.png and dark.png into DIR and ends\n"
           "  --register              lets this user's desktop open addresses of records with this program, in the\n"
           "                          department that --database or --size names\n"
           "  tessarine://miproperty/open/NUMBER\n"
           "  tessarine://mivehicle/open/NUMBER\n"
           "                          shows this record, in the program that has the department open if there is one\n"
           "  --help                  prints this text\n";
}

}  // namespace quellbrook
