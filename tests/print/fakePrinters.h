// tests/print/fakePrinters.h: a printing system with queues that keep what is sent.
#pragma once

#include "print/printer/printers.h"

#include <QFile>
#include <QMap>

namespace tarvik {

/// "Office" prints A4 and Letter in colour on both sides, "Label" one small paper only.
class FakePrinters final : public PrinterSystem {
public:
    FakePrinters()
    {
        PrinterAbilities office;
        office.Papers = { { "iso_a4_210x297mm", "A4", { 8.25F, 11.75F }, { 0.25F, 0.125F } },
            { "na_letter_8.5x11in", "Letter", { 8.5F, 11 }, { 0.5F, 0.25F } } };
        office.DefaultPaper = "iso_a4_210x297mm";
        office.Bins = { "tray-1", "tray-2" };
        office.TwoSided = true;
        office.Colour = true;
        office.Qualities = { PrintQuality::Draft, PrintQuality::Normal };
        office.MostCopies = 99;
        office.DotsPerInch = 600;
        PrinterAbilities label;
        label.Papers = { { "label", "Label", { 4, 4 }, { 0.75F, 0.5F } } };
        label.DefaultPaper = "label";
        Queues = { { "Office", office }, { "Label", label } };
    }

    QStringList Names() const override
    {
        return Queues.keys();
    }
    QString DefaultName() const override
    {
        return Default;
    }
    std::optional<PrinterAbilities> AbilitiesOf(const QString& printer) const override
    {
        return Queues.contains(printer) ? std::optional(Queues[printer]) : std::nullopt;
    }
    bool PrintsToFile(const QString&) const override
    {
        return false;
    }
    SentJob Send(const PrinterChoice& choice, const QString& title, const QString& pdfPath) override
    {
        if (!Refusal.isEmpty())
            return { 0, Refusal };
        QFile file(pdfPath);
        [[maybe_unused]] const bool isOpen = file.open(QIODevice::ReadOnly);
        Sent.append({ choice, title, file.readAll() });
        return { static_cast<int>(Sent.size()), {} };
    }
    JobState StateOf(const QString&, int job) const override
    {
        return States.value(job, JobState::Done);
    }

    struct Job {
        PrinterChoice Choice;
        QString Title;
        QByteArray Pdf;
    };

    QMap<QString, PrinterAbilities> Queues;
    QString Default = "Office";
    QString Refusal;
    QList<Job> Sent;
    QMap<int, JobState> States;
};

} // namespace tarvik
