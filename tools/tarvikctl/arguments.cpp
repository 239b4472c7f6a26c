#include "tools/tarvikctl/arguments.h"

#include <algorithm>
#include <array>
#include <climits>
#include <utility>

namespace {

constexpr int kLastSortKey = 6;

struct CommandForm {
    const char* Name;
    CtlCommand Command;
    const char* Options; ///< those that the command takes, parted by blanks
    int LeastOperands;
    int MostOperands;
};

constexpr std::array<CommandForm, 7> kForms{ {
    { "--help", CtlCommand::Help, "", 0, 0 },
    { "--version", CtlCommand::Version, "", 0, 0 },
    { "text", CtlCommand::Text, "", 1, INT_MAX },
    { "check", CtlCommand::Check, "", 1, INT_MAX },
    { "show", CtlCommand::Show, "--json --all", 1, 1 },
    { "convert", CtlCommand::Convert, "--yes", 2, 2 },
    { "sort", CtlCommand::Sort, "--key --yes", 2, 2 },
} };

class Parser {
public:
    Parser(const CommandForm& form, QStringList words, QString& error)
        : form_(form)
        , words_(std::move(words))
        , error_(error)
    {
        result_.Command = form.Command;
    }

    std::optional<CtlArguments> Run()
    {
        bool optionsEnded = false;
        while (!words_.isEmpty()) {
            const QString word = words_.takeFirst();
            const bool isOption = !optionsEnded && word.size() > 1 && word.startsWith(u'-');
            if (!isOption)
                result_.Operands.append(word);
            else if (word == QStringLiteral("--"))
                optionsEnded = true;
            else if (!TakeOption(word))
                return std::nullopt;
        }
        if (!OperandsFit() || !KeyIsGiven())
            return std::nullopt;
        return result_;
    }

private:
    bool Fail(const QString& error)
    {
        error_ = error;
        return false;
    }

    bool TakeOption(const QString& word)
    {
        const QString name = word.section(u'=', 0, 0);
        const QStringList known = QString::fromLatin1(form_.Options).split(u' ');
        if (!known.contains(name))
            return Fail(QStringLiteral("%1: no such option here").arg(word));
        if (name == QStringLiteral("--key"))
            return TakeKey(word);
        if (word != name)
            return Fail(QStringLiteral("%1 takes no value").arg(name));
        bool& flag = name == QStringLiteral("--json") ? result_.Json
            : name == QStringLiteral("--all")         ? result_.All
                                                      : result_.Yes;
        flag = true;
        return true;
    }

    bool TakeKey(const QString& word)
    {
        QString value = word.section(u'=', 1);
        if (!word.contains(u'=') && !words_.isEmpty())
            value = words_.takeFirst();
        bool isNumber = false;
        result_.SortKey = value.toInt(&isNumber);
        keyGiven_ = isNumber && result_.SortKey >= 0 && result_.SortKey <= kLastSortKey;
        return keyGiven_ || Fail(QStringLiteral("--key takes a number from 0 to %1").arg(kLastSortKey));
    }

    bool OperandsFit()
    {
        if (result_.Operands.size() < form_.LeastOperands)
            return Fail(QStringLiteral("%1: too few arguments").arg(QString::fromLatin1(form_.Name)));
        if (result_.Operands.size() > form_.MostOperands)
            return Fail(QStringLiteral("%1: too many arguments").arg(QString::fromLatin1(form_.Name)));
        return form_.Command != CtlCommand::Text || TextNumbersAreNumbers();
    }

    bool TextNumbersAreNumbers()
    {
        for (const QString& operand : std::as_const(result_.Operands)) {
            bool isNumber = false;
            operand.toInt(&isNumber);
            if (!isNumber)
                return Fail(QStringLiteral("%1: not a number").arg(operand));
        }
        return true;
    }

    bool KeyIsGiven()
    {
        return form_.Command != CtlCommand::Sort || keyGiven_ || Fail(QStringLiteral("sort: --key is missing"));
    }

    const CommandForm& form_;
    QStringList words_;
    QString& error_;
    CtlArguments result_;
    bool keyGiven_ = false;
};

} // namespace

std::optional<CtlArguments> CtlParse(const QStringList& arguments, QString& error)
{
    if (arguments.isEmpty()) {
        error = QStringLiteral("no command");
        return std::nullopt;
    }
    const auto* const form = std::find_if(kForms.begin(), kForms.end(),
        [&arguments](const CommandForm& each) { return arguments.front() == QLatin1String(each.Name); });
    if (form == kForms.end()) {
        error = QStringLiteral("%1: no such command").arg(arguments.front());
        return std::nullopt;
    }
    return Parser(*form, arguments.mid(1), error).Run();
}

QString CtlHelpText()
{
    return QStringLiteral("Usage: tarvikctl check FILE...                 read each file and report\n"
                          "       tarvikctl show [--json] [--all] FILE    print the list; --all: unused rows too\n"
                          "       tarvikctl convert [--yes] IN OUT        write IN in the form of OUT's extension\n"
                          "       tarvikctl sort --key N [--yes] IN OUT   sort a memory list\n"
                          "       tarvikctl text N...                     print the texts of these numbers\n"
                          "       tarvikctl --version\n"
                          "       tarvikctl --help\n"
                          "\n"
                          "Sort keys: 0 status then number; 1, 2 number up, down; 3, 4 frequency up, down;\n"
                          "5, 6 description up, down.\n"
                          "\n"
                          "Messages go to standard error as FILE: NUMBER: TEXT. Questions are answered No,\n"
                          "with --yes Yes. Exit status: 0 all went well, 1 a file was refused or a message\n"
                          "shown, 2 wrong usage.\n");
}
