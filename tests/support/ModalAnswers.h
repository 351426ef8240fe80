#ifndef TORNIK_TESTS_SUPPORT_MODALANSWERS_H
#define TORNIK_TESTS_SUPPORT_MODALANSWERS_H

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <deque>
#include <functional>

/**
 * Answers modal windows in place of the user: each window that opens gets the oldest answer, called
 * from the window's own event loop. A window that nobody expects is a failure and is closed.
 */
class ModalAnswers : public QObject
{
public:
    using Answer = std::function<void(QDialog*)>;

    ModalAnswers() { qApp->installEventFilter(this); }
    ~ModalAnswers() override
    {
        if (!m_answers.empty())
            QTest::qFail("a modal window was expected and did not open", __FILE__, __LINE__);
    }

    void expect(Answer answer) { m_answers.push_back(std::move(answer)); }
    int numberOfWindows() const { return m_numberOfWindows; }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* dialog = qobject_cast<QDialog*>(object);
        if (event->type() == QEvent::Show && dialog && dialog->isModal())
            opened(dialog);
        return false;
    }

private:
    void opened(QDialog* dialog)
    {
        ++m_numberOfWindows;
        Answer answer = [](QDialog* unexpected) {
            QTest::qFail("a modal window opened that was not expected", __FILE__, __LINE__);
            unexpected->reject();
        };
        if (!m_answers.empty()) {
            answer = m_answers.front();
            m_answers.pop_front();
        }
        QTimer::singleShot(0, dialog, [answer, dialog = QPointer<QDialog>(dialog)] {
            answer(dialog);
            if (dialog && QTest::currentTestFailed())
                dialog->reject(); // a check that failed has left the answer before it closed the window
        });
    }

    std::deque<Answer> m_answers;
    int m_numberOfWindows = 0;
};

#endif
