// tests/screen/diagram/dataset_form_fixture.h: shows a data set in the frame and works with its form.
#pragma once

#include "screen/diagram/FmDatasetViewer.h"
#include "screen/diagram/datasetViewer.h"
#include "tests/screen/diagram/diagram_fixture.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QMenu>

namespace tarvik {

class DatasetForm : public ScreenForms {
protected:
    /// Shows a diagram and runs `during` while it is shown; what is still open then fails the test and is closed.
    bool Run(const std::function<void(FmDatasetViewer&)>& during, const MultiTraceInput& input = KfactorInput())
    {
        QTimer::singleShot(0, qApp, [&] {
            auto* form = dynamic_cast<FmDatasetViewer*>(DialogTop());
            if (form == nullptr) {
                ADD_FAILURE() << "no viewer";
                return;
            }
            EXPECT_TRUE(QTest::qWaitForWindowActive(form));
            id = WindowTable().Active;
            QCoreApplication::processEvents();
            during(*form);
            if (DialogTop() == form)
                form->Unload();
        });
        return DatasetShow(input);
    }

    static QWidget& Graph(FmDatasetViewer& form)
    {
        return FindControl(form, QStringLiteral("PbGraph"));
    }

    static DescriptionBox& Description(FmDatasetViewer& form)
    {
        return Find<DescriptionBox>(form, QStringLiteral("TbDescription"));
    }

    /// Opens the pop-up menu with the right mouse button.
    static QMenu& OpenPopup(FmDatasetViewer& form)
    {
        QTest::mouseClick(&Graph(form), Qt::RightButton, {}, QPoint(50, 50));
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            qFatal("no menu");
        return *menu;
    }

    /// Chooses an entry of the pop-up menu.
    void Choose(FmDatasetViewer& form, const char* item)
    {
        QMenu& menu = OpenPopup(form);
        EXPECT_EQ(menu.objectName(), "SwMn");
        QAction& action = Item(item);
        EXPECT_TRUE(action.isEnabled()) << item;
        menu.close();
        action.trigger();
    }

    /// Runs `act` on the dialog that the next command opens.
    template <typename Act>
    static void InNextDialog(Act act)
    {
        QTimer::singleShot(0, qApp, [act] {
            auto* dialog = dynamic_cast<FormBase*>(DialogTop());
            ASSERT_NE(dialog, nullptr);
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
            act(*dialog);
        });
    }

    WindowId id = 0;
};

} // namespace tarvik
