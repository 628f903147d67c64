#include "app/shell/questions.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/commands/command_table.h"
#include "app/document/play_texts.h"
#include "app/document/variants.h"
#include "app/shell/panel.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

QString Filled(const TUserText& text, const std::vector<std::string>& values) {
    return QString::fromStdString(FilledText(text, values));
}

QString TitleOfCommand(TCommand command) {
    return PlainText(*TextOfCommand(command));
}

QStringList ToList(const std::set<std::wstring>& texts) {
    QStringList list;
    for (const std::wstring& text : texts) {
        list << QString::fromStdWString(text);
    }
    return list;
}

QStringList NamesOf(const std::vector<TVariantItem>& variants) {
    QStringList names;
    for (const TVariantItem& variant : variants) {
        names << QString::fromStdWString(variant.name);
    }
    return names;
}

/// Why the name is none, or that another variant has it where that is a reason.
QString WhyNoVariantName(const QString& text, const QStringList& taken, bool bReplace) {
    try {
        const QString name = QString::fromStdWString(CheckedVariantName(text.toStdWString()));
        return !bReplace && taken.contains(name) ? Filled(VariantExistsText, {name.toStdString()})
                                                 : QString();
    } catch (const ChessException& error) {
        return QString::fromUtf8(error.what());
    }
}

}  // namespace

CTextDialog* NewNumberQuestion(const std::vector<int>& ids, int current, QWidget* pParent) {
    TTextQuestion question;
    question.title = TitleOfCommand(TCommand::SelectProblemNumber);
    const int first = ids.empty() ? 0 : ids.front();
    const int last = ids.empty() ? 0 : ids.back();
    question.prompt = Filled(NumberPromptText, {std::to_string(first), std::to_string(last)});
    question.text = QString::number(current);
    question.whyNot = [ids](const QString& text) {
        bool bNumber = false;
        const int id = text.trimmed().toInt(&bNumber);
        return bNumber && std::ranges::binary_search(ids, id)
                   ? QString()
                   : Filled(NoSuchProblemText, {text.trimmed().toStdString()});
    };
    return new CTextDialog(std::move(question), pParent);
}

CTextDialog* NewCommentQuestion(const QString& moveText, const QString& comment, QWidget* pParent) {
    TTextQuestion question;
    question.title = TitleOfCommand(TCommand::CommentLastMove);
    question.prompt = Filled(CommentPromptText, {moveText.toStdString()});
    question.text = comment;
    question.whyNot = [](const QString& text) {
        return text.contains(']') ? ShownText(CommentBracketText) : QString();
    };
    return new CTextDialog(std::move(question), pParent);
}

CTextDialog* NewTagQuestion(const std::set<std::wstring>& known,
                            const std::set<std::wstring>& ofProblem, QWidget* pParent) {
    std::set<std::wstring> others;
    std::ranges::set_difference(known, ofProblem, std::inserter(others, others.end()));
    TTextQuestion question;
    question.title = TitleOfCommand(TCommand::AddTag);
    question.prompt = ShownText(TagPromptText);
    question.offered = ToList(others);
    question.whyNot = [ofProblem](const QString& text) {
        const QString tag = text.trimmed();
        if (tag.isEmpty()) {
            return ShownText(EmptyTagText);
        }
        return ofProblem.contains(tag.toStdWString()) ? ShownText(HasTagText) : QString();
    };
    return new CTextDialog(std::move(question), pParent);
}

CTextDialog* NewTagRemovalQuestion(const std::set<std::wstring>& ofProblem, QWidget* pParent) {
    TTextQuestion question;
    question.title = TitleOfCommand(TCommand::RemoveTag);
    question.prompt = ShownText(TagToRemoveText);
    question.offered = ToList(ofProblem);
    question.bOfferedOnly = true;
    return new CTextDialog(std::move(question), pParent);
}

CTextDialog* NewVariantNameQuestion(const std::vector<TVariantItem>& variants, const QString& name,
                                    bool bReplace, QWidget* pParent) {
    TTextQuestion question;
    question.title = TitleOfCommand(bReplace ? TCommand::SaveVariant : TCommand::RenameVariant);
    question.prompt = ShownText(VariantPromptText);
    question.text = name;
    QStringList taken = NamesOf(variants);
    if (bReplace) {
        question.offered = taken;
    } else {
        taken.removeOne(name);
    }
    question.whyNot = [taken, bReplace](const QString& text) {
        return WhyNoVariantName(text, taken, bReplace);
    };
    question.note = [taken, bReplace](const QString& text) {
        return bReplace && taken.contains(text.trimmed()) ? ShownText(WillReplaceText) : QString();
    };
    return new CTextDialog(std::move(question), pParent);
}

CTextDialog* NewVariantChoice(TCommand command, const std::vector<TVariantItem>& variants,
                              QWidget* pParent) {
    TTextQuestion question;
    question.title = TitleOfCommand(command);
    question.prompt = ShownText(WhichVariantText);
    question.offered = NamesOf(variants);
    question.bOfferedOnly = true;
    return new CTextDialog(std::move(question), pParent);
}

}  // namespace tarnwick
