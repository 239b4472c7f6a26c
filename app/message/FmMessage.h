// app/message/FmMessage.h: the message form: shows one request and stores the answer.
#pragma once

#include "app/forms/form.h"
#include "app/message/messageForm.h"

#include <array>

namespace tarvik {

class FmMessage final : public FormBase {
    Q_OBJECT
public:
    /// `request` outlives the form.
    explicit FmMessage(MessageRequest& request, QWidget* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// A question waits for its answer.
    bool CanCloseUnasked() const override;

protected:
    bool OnLoad() override;
    void OnUnload() override;
    void OnActivate() override;
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel* NewPicture(const char* name, const QString& picture, int help);
    void BuildButtons();
    void BuildLayout();
    void ShowText();
    void ShowButtons();
    void Press(MsgButton button);
    QPushButton* Button(MsgButton button) const;

    MessageRequest& request_;
    QLabel* ImQuest = nullptr;
    QLabel* ImExcl = nullptr;
    QLabel* LbText = nullptr;
    std::array<QPushButton*, kMsgButtonCount> buttons_{};
};

/// Makes the form the presenter of all messages.
void BindMessageForm();

} // namespace tarvik
