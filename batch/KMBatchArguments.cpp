#include "KMBatchArguments.h"

#include "formats/KMExchangeFormat.h"

#include <QRegularExpression>
#include <QVector>

#include <algorithm>

namespace {

/// One switch of a command. The pattern says what its value looks like; a flag has none.
struct SwitchRow
{
    QString name;
    const char *pattern;
    const char *help; ///< what the value is, as the usage shows it
};

struct CommandRow
{
    const char *name;
    int fewestPaths;
    int mostPaths;
    const char *paths; ///< as the usage shows them
    QVector<SwitchRow> switches;
    QVector<KMExchangeFormat::Form KMExchangeFormat::*> forms; ///< those of each format have switches too
};

constexpr char number[] = "-?[0-9]*\\.?[0-9]+([eE][-+]?[0-9]+)?";
constexpr char wholeNumber[] = "[0-9]{1,9}";
constexpr char anything[] = ".+";

const QVector<CommandRow> &commands()
{
    using Format = KMExchangeFormat;
    static const QVector<CommandRow> rows = {
        {"info", 1, 1, "FILE", {}, {&Format::readForm}},
        {"convert",
         2,
         2,
         "IN OUT",
         {{"import-scale", number, "X"},
          {"export-scale", number, "X"},
          {"no-freeze-mods", nullptr, nullptr},
          {"compatibility", nullptr, nullptr}},
         {&Format::readForm, &Format::writeForm}},
        {"render",
         2,
         2,
         "IN OUT.png",
         {{"view", "front|back|left|right|top|bottom|perspective", "front|back|left|right|top|bottom|perspective"},
          {"size", "[1-9][0-9]{0,4}x[1-9][0-9]{0,4}", "1280x680"},
          {"motion", anything, "M.vmd"},
          {"frame", wholeNumber, "N"},
          {"pose", anything, "P.vpd"}},
         {&Format::readForm}},
        {"run", 1, 2, "SCRIPT.js [IN]", {{"out", anything, "OUT"}}, {}},
    };
    return rows;
}

const CommandRow *findCommand(const QString &name)
{
    for (const CommandRow &row : commands()) {
        if (name == QLatin1String(row.name))
            return &row;
    }
    return nullptr;
}

/// What answers a form: a switch for each of its options, and for one that is on or off a second one that says no.
QVector<SwitchRow> switchesOf(const KMExchangeFormat::Form &form)
{
    QVector<SwitchRow> rows;
    const QVector<KMOption> options = form ? form().options : QVector<KMOption>();
    for (const KMOption &option : options) {
        const bool isNumber = option.kind == KMOption::Int || option.kind == KMOption::Float;
        if (option.kind == KMOption::Bool)
            rows << SwitchRow{option.key, nullptr, nullptr}
                 << SwitchRow{QStringLiteral("no-") + option.key, nullptr, nullptr};
        else
            rows << SwitchRow{option.key, isNumber ? number : anything, isNumber ? "X" : "TEXT"};
    }
    return rows;
}

/// Whatever the formats of the files are: they are known when all arguments have been taken.
QVector<SwitchRow> switchesOf(const CommandRow &command)
{
    QVector<SwitchRow> rows = command.switches;
    for (const KMExchangeFormat &format : exchangeFormats()) {
        for (const auto form : command.forms)
            rows += switchesOf(format.*form);
    }
    return rows;
}

bool matches(const QString &value, const char *pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(pattern))).match(value).hasMatch();
}

/// Takes one switch, with the argument behind it where it needs a value.
QString takeSwitch(const CommandRow &command, QString name, QStringList &rest, QMap<QString, QString> &switches)
{
    const int equals = name.indexOf(QLatin1Char('='));
    const QString given = equals < 0 ? QString() : name.mid(equals + 1);
    name.truncate(equals < 0 ? name.size() : equals);
    const QVector<SwitchRow> rows = switchesOf(command);
    const auto row =
        std::find_if(rows.cbegin(), rows.cend(), [&name](const SwitchRow &known) { return known.name == name; });
    if (row == rows.cend())
        return QStringLiteral("%1 has no switch --%2").arg(QLatin1String(command.name), name);
    if (switches.contains(name))
        return QStringLiteral("--%1 was given twice").arg(name);
    if (!row->pattern) {
        switches.insert(name, {});
        return equals < 0 ? QString() : QStringLiteral("--%1 takes no value").arg(name);
    }
    if (equals < 0 && rest.isEmpty())
        return QStringLiteral("--%1 needs a value").arg(name);
    const QString value = equals < 0 ? rest.takeFirst() : given;
    switches.insert(name, value);
    return matches(value, row->pattern) ? QString() : QStringLiteral("--%1 can't be \"%2\"").arg(name, value);
}

QString takeAll(const CommandRow &command, QStringList rest, KMBatchArguments &result)
{
    bool onlyPaths = false;
    while (!rest.isEmpty()) {
        const QString argument = rest.takeFirst();
        if (!onlyPaths && argument == QLatin1String("--")) {
            onlyPaths = true;
        } else if (!onlyPaths && argument.startsWith(QLatin1String("--"))) {
            const QString error = takeSwitch(command, argument.mid(2), rest, result.switches);
            if (!error.isEmpty())
                return error;
        } else {
            result.paths << argument;
        }
    }
    if (result.paths.size() < command.fewestPaths || result.paths.size() > command.mostPaths)
        return QStringLiteral("%1 takes %2").arg(QLatin1String(command.name), QLatin1String(command.paths));
    return {};
}

QString usageOf(const QVector<SwitchRow> &rows)
{
    QString text;
    for (const SwitchRow &row : rows) {
        const QString value = row.help ? QLatin1Char(' ') + QLatin1String(row.help) : QString();
        text += QStringLiteral(" [--%1%2]").arg(row.name, value);
    }
    return text;
}

} // namespace

KMBatchArguments KMBatchArguments::parse(const QStringList &arguments, QString &error)
{
    KMBatchArguments result;
    if (arguments.isEmpty()) {
        error = QStringLiteral("no command was given");
        return result;
    }
    result.command = arguments.first();
    if (result.command == QLatin1String("--help") || result.command == QLatin1String("-h"))
        result.command = QStringLiteral("help");
    if (result.command == QLatin1String("help"))
        return result;
    if (const CommandRow *command = findCommand(result.command))
        error = takeAll(*command, arguments.mid(1), result);
    else
        error = QStringLiteral("there is no command \"%1\"").arg(result.command);
    return result;
}

QString KMBatchArguments::usage()
{
    QString text = QStringLiteral("Usage:\n");
    for (const CommandRow &command : commands()) {
        text += QStringLiteral("  kelmo-batch %1 %2").arg(QLatin1String(command.name), QLatin1String(command.paths));
        text += usageOf(command.switches) + QLatin1Char('\n');
    }
    for (const KMExchangeFormat &format : exchangeFormats()) {
        const QString words[] = {usageOf(switchesOf(format.readForm)), usageOf(switchesOf(format.writeForm))};
        if (!words[0].isEmpty())
            text += QStringLiteral("Reading .%1:%2\n").arg(format.suffix, words[0]);
        if (!words[1].isEmpty())
            text += QStringLiteral("Writing .%1:%2\n").arg(format.suffix, words[1]);
    }
    return text
           + QStringLiteral(
               "Exit code: 0 done; 1 wrong use; 2 input missing, unreadable or damaged; 3 output not written\n");
}
