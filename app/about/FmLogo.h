// app/about/FmLogo.h: the picture shown while the program starts.
#pragma once

#include "app/forms/form.h"

namespace tarvik {

class FmLogo final : public FormBase {
    Q_OBJECT
public:
    /// Takes the size of `picture`.
    explicit FmLogo(const QPixmap& picture, QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
};

} // namespace tarvik
