// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/AccessibleItem.h"
#include "tests/support/TestProgram.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

#include <array>
#include <memory>

using namespace norvane;

namespace {

struct Piece {
    QString text;
    int start = -2;
    int end = -2;

    friend bool operator==(const Piece &, const Piece &) = default;
};

constexpr std::array boundaries{QAccessible::CharBoundary,     QAccessible::WordBoundary,
                                QAccessible::SentenceBoundary, QAccessible::ParagraphBoundary,
                                QAccessible::LineBoundary,     QAccessible::NoBoundary};

} // namespace

class TestAccessibleTextField final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        AccessibleItem::install();
        QQmlComponent component{&engine_};
        component.setData(R"(
            import QtQuick
            TextInput {
                property int edits: 0
                property var value
                Accessible.role: Accessible.EditableText
                Accessible.name: "Name"
                Accessible.description: "What it is for"
                onTextEdited: ++edits
            })",
                          {});
        item_.reset(qobject_cast<QQuickItem *>(component.create()));
        QVERIFY2(item_, qPrintable(component.errorString()));
    }

    void everyQuestionAtEveryOffsetIsAnswered_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *const text :
             {"", "a", " ", "Hulu Plus", "  two  spaces ", "One. Two? Three", "e\u0301 n\u0303",
              "\U0001f468\u200d\U0001f469\u200d\U0001f467 x", "\u062a\u062c\u0631\u0628\u0629 x",
              "\u8a66\u7528\u671f\u9593"}) {
            QTest::addRow("'%s'", text) << QString::fromUtf8(text);
        }
    }
    void everyQuestionAtEveryOffsetIsAnswered()
    {
        QFETCH(const QString, text);
        item_->setProperty("text", text);
        const auto length = static_cast<int>(text.size());

        for (const QAccessible::TextBoundaryType boundary : boundaries) {
            for (int offset = -1; offset <= length + 1; ++offset) {
                const bool inside = offset <= length && length > 0;
                const int place = offset == -1 ? length : offset;
                const Piece here = at(offset, boundary);
                const Piece before = around(offset, boundary, false);
                const Piece after = around(offset, boundary, true);
                for (const Piece &piece : {here, before, after}) {
                    QCOMPARE(piece.text.isEmpty(), piece.start == -1 && piece.end == -1);
                    QCOMPARE(text.mid(piece.start, piece.end - piece.start).isEmpty(),
                             piece.text.isEmpty());
                }
                const bool behindAll = boundary == QAccessible::CharBoundary && place == length;
                QCOMPARE(!here.text.isEmpty(), inside && !behindAll);
                if (here.text.isEmpty()) {
                    continue;
                }
                QVERIFY(here.start <= place && place <= here.end);
                QCOMPARE(here.text, text.mid(here.start, here.end - here.start));
                QCOMPARE(before.text.isEmpty(), here.start == 0);
                QCOMPARE(after.text.isEmpty(), here.end == length);
                QVERIFY(before.text.isEmpty() || before.end == here.start);
                QVERIFY(after.text.isEmpty() || after.start == here.end);
            }
        }
    }

    void theWordAtTheEndIsTheLastOne()
    {
        item_->setProperty("text", QStringLiteral("Hulu Plus"));

        QCOMPARE(at(9, QAccessible::WordBoundary), (Piece{QStringLiteral("Plus"), 5, 9}));
        QCOMPARE(at(-1, QAccessible::WordBoundary), (Piece{QStringLiteral("Plus"), 5, 9}));
        QCOMPARE(at(4, QAccessible::WordBoundary), (Piece{QStringLiteral(" "), 4, 5}));
        QCOMPARE(at(0, QAccessible::WordBoundary), (Piece{QStringLiteral("Hulu"), 0, 4}));
        QCOMPARE(at(9, QAccessible::LineBoundary), (Piece{QStringLiteral("Hulu Plus"), 0, 9}));
    }

    void itReportsItsRoleNameDescriptionAndText()
    {
        item_->setProperty("text", QStringLiteral("Hulu"));

        QCOMPARE(field()->role(), QAccessible::EditableText);
        QCOMPARE(field()->text(QAccessible::Name), QStringLiteral("Name"));
        QCOMPARE(field()->text(QAccessible::Description), QStringLiteral("What it is for"));
        QCOMPARE(field()->text(QAccessible::Value), QStringLiteral("Hulu"));
        QVERIFY(field()->state().editable);
        QCOMPARE(words()->text(1, 3), QStringLiteral("ul"));
        QCOMPARE(words()->text(0, -1), QStringLiteral("Hulu"));
        QCOMPARE(words()->text(3, 1), QString{});
        QCOMPARE(words()->characterCount(), 4);
    }

    void aFieldWithAValueIsOneThatCanBeStepped()
    {
        QCOMPARE(field()->valueInterface(), nullptr);
        item_->setProperty("value", 61);

        QCOMPARE(field()->role(), QAccessible::SpinBox);
        QVERIFY(field()->valueInterface());
        QCOMPARE(field()->valueInterface()->currentValue().toInt(), 61);
        QVERIFY(field()->state().editable);
    }

    void caretAndSelectionCanBeReadAndMoved()
    {
        item_->setProperty("text", QStringLiteral("Hulu Plus"));

        words()->setCursorPosition(99);
        QCOMPARE(words()->cursorPosition(), 9);
        QCOMPARE(words()->selectionCount(), 0);
        words()->addSelection(0, 4);
        int start = 0;
        int end = 0;
        words()->selection(0, &start, &end);
        QCOMPARE(words()->selectionCount(), 1);
        QCOMPARE((QList{start, end}), (QList{0, 4}));
        words()->removeSelection(0);
        QCOMPARE(words()->selectionCount(), 0);
    }

    void anEditCountsAsOneByTheUser()
    {
        QAccessibleEditableTextInterface *const edit = field()->editableTextInterface();

        edit->insertText(0, QStringLiteral("Hulu Plus"));
        edit->deleteText(4, 9);
        edit->replaceText(0, 1, QStringLiteral("Z"));

        QCOMPARE(item_->property("text").toString(), QStringLiteral("Zulu"));
        QVERIFY(item_->property("edits").toInt() >= 3);
    }

    void whatIsDisabledOrReadOnlyCannotBeEdited()
    {
        item_->setProperty("readOnly", true);
        field()->editableTextInterface()->insertText(0, QStringLiteral("x"));
        item_->setProperty("readOnly", false);
        item_->setEnabled(false);
        field()->editableTextInterface()->insertText(0, QStringLiteral("x"));

        QVERIFY(field()->state().disabled);
        QCOMPARE(item_->property("text").toString(), QString{});
    }

private:
    [[nodiscard]] QAccessibleInterface *field() const
    {
        return QAccessible::queryAccessibleInterface(item_.get());
    }
    [[nodiscard]] QAccessibleTextInterface *words() const { return field()->textInterface(); }
    [[nodiscard]] Piece at(int offset, QAccessible::TextBoundaryType boundary) const
    {
        Piece piece;
        piece.text = words()->textAtOffset(offset, boundary, &piece.start, &piece.end);
        return piece;
    }
    [[nodiscard]] Piece around(int offset, QAccessible::TextBoundaryType boundary, bool after) const
    {
        Piece piece;
        piece.text = after ? words()->textAfterOffset(offset, boundary, &piece.start, &piece.end)
                           : words()->textBeforeOffset(offset, boundary, &piece.start, &piece.end);
        return piece;
    }

    QQmlEngine engine_;
    std::unique_ptr<QQuickItem> item_;
};

NORVANE_GUI_TEST(TestAccessibleTextField)
#include "tst_AccessibleTextField.moc"
