#pragma once
// The questions that commands ask before they act: connect `answered` or `chosen` and call open().

#include <QWidget>
#include <set>
#include <string>
#include <vector>

#include "app/shell/moves_panel.h"
#include "app/shell/text_dialog.h"

namespace tarnwick {

/// answered: a number that is in the list. ids rise.
CTextDialog* NewNumberQuestion(const std::vector<int>& ids, int current, QWidget* pParent);

/// answered: the comment; an empty one takes it away. The move's text is in the heading.
CTextDialog* NewCommentQuestion(const QString& moveText, const QString& comment, QWidget* pParent);

/// answered: a tag that is not empty and not among those of the problem.
CTextDialog* NewTagQuestion(const std::set<std::wstring>& known,
                            const std::set<std::wstring>& ofProblem, QWidget* pParent);
/// answered: one of the problem's tags.
CTextDialog* NewTagRemovalQuestion(const std::set<std::wstring>& ofProblem, QWidget* pParent);

/// answered: a name that a variant may have. If another variant has it, a note says that it will be
/// replaced (bReplace) or the name is refused.
CTextDialog* NewVariantNameQuestion(const std::vector<TVariantItem>& variants, const QString& name,
                                    bool bReplace, QWidget* pParent);
/// chosen: the row in variants. The command, ShowVariant, AnimateVariant, RenameVariant or RemoveVariant,
/// gives the title.
CTextDialog* NewVariantChoice(TCommand command, const std::vector<TVariantItem>& variants,
                              QWidget* pParent);

}  // namespace tarnwick
