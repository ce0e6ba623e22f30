#include "excel_batch/batch_fixture.h"

// Each refusal of the batches, in both languages.

namespace zel::excel_batch {
namespace {

using Change = std::function<void(MemorySheet& fixed, MemorySheet& rows)>;

void set(MemorySheet& sheet, int row, int column, const char* text) {
    sheet[{row, column}] = std::string(text);
}

struct Refusal {
    const char* name;
    Change change;
    const char* english;  // title and lines of the first box
    const char* german;
};

std::string text_of_box(const Box& box) { return box.title + "\n" + joined(box.lines, "\n"); }

class Refusals : public Batch {
protected:
    void expect(const Refusal& refusal, const MemorySheets& sound) {
        const Text texts = {refusal.german, refusal.english};
        for (const LangId language : {LangId::English, LangId::German}) {
            workbook() = sound;
            refusal.change(fixed(), rows());
            lang = language;
            const auto boxes = this->refusal();
            ASSERT_FALSE(boxes.empty()) << refusal.name;
            EXPECT_EQ(text_of_box(boxes[0]), texts.in(language)) << refusal.name;
            EXPECT_EQ(boxes[0].icon, Icon::Stop) << refusal.name;
        }
    }
};

const Refusal steady_refusals[] = {
    {"text in a number cell", [](MemorySheet& fixed, MemorySheet&) { set(fixed, 19, 3, "0.5"); },
     "Incorrect input value\n"
     "There is within the excel workbook:\na.xlsx\nin worksheet:\nfixed_input\n"
     "no correct input\nin column 3 / row 19 .\nIncorrect input value:\n0.5\n"
     "Please correct your input !",
     " Fehlerhafte Eingabe\n"
     "Es wurde in der Excel-Arbeitsmappe:\na.xlsx\nim Arbeitsblatt:\nfixed_input\n"
     "keine korrekte Eingabe\nin Spalte 3 / Zeile 19 gemacht.\nInkorrekter Eingabewert:\n0.5\n"
     "Bitte korrigieren Sie ihre Eingabe !"},
    {"limit",
     [](MemorySheet& fixed, MemorySheet&) {
         fixed[{19, 3}] = 4501.5;
     },
     "Incorrect input value\n"
     "Maximum value for altitude is 4500 m above sea level !\n"
     "Minimum value for altitude is 0 m above sea level !\n"
     "Worksheet fixed_input : column 3 / row 19\nIncorrect input value: 4501,5",
     " Fehlerhafte Eingabe\n"
     "Maximalwert für die Höhe beträgt 4500 m über N.N. !\n"
     "Minimalwert für die Höhe beträgt 0 m über N.N. !\n"
     "Arbeitsblatt fixed_input : Spalte 3 / Zeile 19\nInkorrekter Eingabewert: 4501,5"},
    {"frequency of TB 207 and Kirn",
     [](MemorySheet& fixed, MemorySheet&) {
         fixed[{40, 3}] = 61.0;
     },
     "Input incorrect !\n"
     "Calculations by Cigre TB 207 or Kirn can only be carried out\n"
     "for frequencies from 50Hz - 60 Hz. \nPlease correct your input for frequency \n"
     "Worksheet fixed_input : column 3 / row 40\nIncorrect input value: 61",
     "Unzulässige Eingabe\n"
     "Die Berechnungen nach Cigre TB 207 und/oder Kirn \n"
     "können nur für Netzfrequenzen von 50 - 60 Hz durchgeführt werden.\n"
     "Bitt ändern sie den Wert der Netzfrequenz.\n"
     "Arbeitsblatt fixed_input : Spalte 3 / Zeile 40\nInkorrekter Eingabewert: 61"},
    {"both currents",
     [](MemorySheet& fixed, MemorySheet&) {
         fixed[{45, 3}] = 1000.0;
     },
     "Incorrect input value\n"
     "You have to edit exclusively the current of the single conductor\n"
     "or the current of the whole conductor bundle\n"
     "Worksheet fixed_input : column 3 / row 45\nIncorrect input value: 1000",
     " Fehlerhafte Eingabe\n"
     "Es darf nur entweder die Stromstärke des Teilleiters\n"
     "oder die Stromstärke des gesamten Bündelleiters angegeben werden.\n"
     "Arbeitsblatt fixed_input : Spalte 3 / Zeile 45\nInkorrekter Eingabewert: 1000"},
    {"no current",
     [](MemorySheet& fixed, MemorySheet&) {
         fixed.erase({44, 3});
     },
     "Input incomplete !\nYou havn't made an input for the current !\n"
     "Worksheet fixed_input : column 3 / row 44\nIncorrect input value: ",
     "Unvollständige Eingabe\nEs wurde keine Angabe zur\nStromstaerke gemacht.\n"
     "Arbeitsblatt fixed_input : Spalte 3 / Zeile 44\nInkorrekter Eingabewert: "},
    {"mode",
     [](MemorySheet& fixed, MemorySheet&) {
         fixed[{47, 3}] = 3.0;
     },
     "Incorrect input value\n"
     "There is within the excel workbook:\na.xlsx\nin worksheet:\nfixed_input\n"
     "no correct input\nin column 3 / row 47 .\nIncorrect input value:\n3\n"
     "Please correct your input !",
     " Fehlerhafte Eingabe\n"
     "Es wurde in der Excel-Arbeitsmappe:\na.xlsx\nim Arbeitsblatt:\nfixed_input\n"
     "keine korrekte Eingabe\nin Spalte 3 / Zeile 47 gemacht.\nInkorrekter Eingabewert:\n3\n"
     "Bitte korrigieren Sie ihre Eingabe !"},
    {"busbar beside a line",
     [](MemorySheet& fixed, MemorySheet&) {
         fixed[{7, 3}] = 1.0;
     },
     "Incorrect input value\n"
     "The calculation for tubular busbars can not be carried out\n"
     "parallel to the calculation of overhead conductors.\n"
     "Please set the calculation method for tubular busbars in cell C7 to 0",
     " Fehlerhafte Eingabe\n"
     "Die Berechnung für Kreisring-Stromschienen kann nicht\n"
     "parallel zur Berechnung von Leiterseilen durchgeführt werden.\n"
     "Bitte setzen Sie das Berechnungsverfahren für Kreisring-Stromschienen in Zelle C7 auf 0"},
    {"single layer by TB 601",
     [](MemorySheet& fixed, MemorySheet&) {
         fixed[{78, 3}] = 1.0;
     },
     "Input not suitable for calculation method !\n"
     "The chosen conductor ist a SINGLE layer conductor with a magentic core.\n"
     "Within this application the calculation by Cigre TB 601\n"
     "is excluded because of their big magnetic losses / transformer effects\n"
     "at high currents.This conductor are absolutely not suitable \n"
     "for overhead lines with high ampacitiy / current densities.\n"
     "For further information see userbook ZEL\n"
     "Please choose another conductor\nor another calculation method.\n"
     "Worksheet fixed_input : column 3 / row 78\nIncorrect input value: 1",
     "Seilauswahl nicht passend zur Berechnungsmethode\n"
     "Das ausgewählte Seil ist ein Verbundleiter mit EINER Lage Leitermaterial\n"
     "und einem magnetischen Kern. \n"
     "Dies Seile sind im vorliegenden Programm von der Berechnung nach Cigre TB 601\n"
     "aufgrund ihrer großen magnetischen Verlust ausgeschlossen\n"
     "und auch nicht für hochbelastete Leitungen geeignet.\n"
     "Weitere Erläuterungen siehe Benutzerhandbuch VOR\n"
     "Bitte wählen sie ein anderes Seil oder ein anderes Berechnungsverfahren.\n"
     "Arbeitsblatt fixed_input : Spalte 3 / Zeile 78\nInkorrekter Eingabewert: 1"},
    {"conductor columns",
     [](MemorySheet& fixed, MemorySheet&) { set(fixed, 2, 2, "DS80b_E_Conductor_var"); },
     "Incorrect input value\n"
     "The Excel calculation without editing option for conductor data\n"
     "in worksheet < variable_input_result >  was preselected,\n"
     "but an Excel workbook with the data sheet identifier (cell B2):\n"
     "DS80b_G_Conductor_var or DS80b_E_Conductor_var\nwas selected.\n"
     "Please select an Excel workbook with the data sheet identifier (cell B2):\n"
     "DS80b_G_Conductor_fix or DS80b_E_Conductor_fix",
     " Fehlerhafte Eingabe\n"
     "Es wurde die Vorauswahl: Excel-Berechnung ohne Editier-Option\n"
     "von Leiterdaten in Arbeitsblatt < variable_input_result > getroffen,\n"
     "jedoch eine Excel-Arbeitsmappe mit der Datenblattkennung (Zelle B2):\n"
     "DS80b_G_Conductor_var oder DS80b_E_Conductor_var\naugewählt.\n"
     "Bitte wählen sie eine Excel-Arbeitsmappe mit der der Datenblattkennung\n"
     "DS80b_G_Conductor_fix oder DS80b_E_Conductor_fix\naus."},
    {"no identifier", [](MemorySheet& fixed, MemorySheet&) { set(fixed, 2, 2, "mine"); },
     "Incorrect input value\n"
     "The Excel calculation without editing option for conductor data\n"
     "in worksheet < variable_input_result >  was preselected,\n"
     "but no Excel workbook with the data sheet identifier (cell B2):\n"
     "DS80b_G_Conductor_fix or DS80b_E_Conductor_fix\nwas selected.\n"
     "Please select an Excel workbook with the data sheet identifier (cell B2):\n"
     "DS80b_G_Conductor_fix or DS80b_E_Conductor_fix\nCell B2 holds: mine",
     " Fehlerhafte Eingabe\n"
     "Es wurde die Vorauswahl: Excel-Berechnung ohne Editier-Option\n"
     "von Leiterdaten in Arbeitsblatt < variable_input_result > getroffen,\n"
     "jedoch keine Excel-Arbeitsmappe mit der Datenblattkennung (Zelle B2):\n"
     "DS80b_G_Conductor_fix oder DS80b_E_Conductor_fix\naugewählt.\n"
     "Bitte wählen sie eine Excel-Arbeitsmappe mit der der Datenblattkennung\n"
     "DS80b_G_Conductor_fix oder DS80b_E_Conductor_fix\naus.\nZelle B2 enthält: mine"},
    {"inactive row in the first pass",
     [](MemorySheet&, MemorySheet& rows) {
         rows[{5, 2}] = 2.0;
     },
     "Incorrect input value\n"
     "There is within the excel workbook:\na.xlsx\nin worksheet:\nvariable_input_result\n"
     "no correct input\nin column 2 / row 5 .\nIncorrect input value:\n2\n"
     "Please correct your input !\n"
     "permissible input values: 1 = active / empty = end of calculation",
     " Fehlerhafte Eingabe\n"
     "Es wurde in der Excel-Arbeitsmappe:\na.xlsx\nim Arbeitsblatt:\nvariable_input_result\n"
     "keine korrekte Eingabe\nin Spalte 2 / Zeile 5 gemacht.\nInkorrekter Eingabewert:\n2\n"
     "Bitte korrigieren Sie ihre Eingabe !\n"
     "Zulässige Werte: 1 = aktiviert / leer = Berechnungsende"},
    {"limit in a row",
     [](MemorySheet&, MemorySheet& rows) {
         rows[{5, 31}] = 501.0;
     },
     "Incorrect input value\n"
     "Input value higher than 500 °C. Please correct your input !\n"
     "Input value lower than -50 °C. Please correct your input !\n"
     "Worksheet variable_input_result : column 31 / row 5\nIncorrect input value: 501",
     " Fehlerhafte Eingabe\n"
     "Eingegebener Wert > 500 °C. Korrigieren Sie bitte die Eingabe !\n"
     "Eingegebener Wert < -50 °C. Korrigieren Sie bitte die Eingabe !\n"
     "Arbeitsblatt variable_input_result : Spalte 31 / Zeile 5\nInkorrekter Eingabewert: 501"},
};

TEST_F(Refusals, of_a_steady_workbook) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    add_row(line_of_all_methods());
    const MemorySheets sound = workbook();
    for (const Refusal& refusal : steady_refusals) expect(refusal, sound);
}

TEST_F(Refusals, of_the_conductor_of_a_row) {
    start_steady(WorkbookKind::SteadyVar, line_of_all_methods());
    for (int i = 0; i < 2; ++i) add_row(line_of_all_methods());
    const MemorySheets sound = workbook();
    constexpr std::pair<int, double> cells[] = {{60, 1}, {38, tubular_busbar}};
    for (const auto& [column, code] : cells) {
        workbook() = sound;
        rows()[{6, column}] = code;
        const auto boxes = refusal();
        ASSERT_EQ(boxes.size(), 3U);
        EXPECT_THAT(text_of_box(boxes[0]),
                    testing::HasSubstr("\nWorksheet variable_input_result : column " +
                                       std::to_string(column) + " / row 6\n"));
    }
}

TEST_F(Refusals, of_the_form_without_conductor_columns_where_they_are_wanted) {
    start_steady(WorkbookKind::SteadyVar, line_of_all_methods());
    const MemorySheets sound = workbook();
    expect({"conductor columns",
            [](MemorySheet& fixed, MemorySheet&) { set(fixed, 2, 2, "DS80b_G_Conductor_fix"); },
            "Incorrect input value\n"
            "The Excel calculation with editing option for conductor data\n"
            "in worksheet < variable_input_result >  was preselected,\n"
            "but an Excel workbook with the data sheet identifier (cell B2):\n"
            "DS80b_G_Conductor_fix or DS80b_E_Conductor_fix\nwas selected.\n"
            "Please select an Excel workbook with the data sheet identifier (cell B2):\n"
            "DS80b_G_Conductor_var or DS80b_E_Conductor_var",
            " Fehlerhafte Eingabe\n"
            "Es wurde die Vorauswahl: Excel-Berechnung mit Editier-Option\n"
            "von Leiterdaten in Arbeitsblatt < variable_input_result > getroffen,\n"
            "jedoch eine Excel-Arbeitsmappe mit der Datenblattkennung (Zelle B2):\n"
            "DS80b_G_Conductor_fix oder DS80b_E_Conductor_fix\naugewählt.\n"
            "Bitte wählen sie eine Excel-Arbeitsmappe mit der der Datenblattkennung\n"
            "DS80b_G_Conductor_var oder DS80b_E_Conductor_var\naus."},
           sound);
}

TEST_F(Refusals, every_wrong_cell_is_told_and_then_the_end) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    for (const int row : {8, 12, 25, 55, 99}) set_fixed_text(row, "x");
    auto boxes = refusal();
    ASSERT_EQ(boxes.size(), 6U);
    EXPECT_EQ(text_of_box(boxes.back()),
              "ZEL V.8.2\nExcel calculation was stopped because of \n"
              "incorrect input data in excel sheet:\n   \nfixed_input\n"
              "Please check and correct the input data in the ecxel sheet\n"
              "and start the calculation afterwards one more time.");
    lang = LangId::German;
    EXPECT_EQ(text_of_box(refusal().back()),
              "VOR V.8.2\nExcel-Berechnung wurde wegen fehlerhafter \n"
              "Eingabe-Daten im Excel-Arbeitsblatt\nfixed_input\nabgebrochen !\n"
              "Bitte korrigieren Sie zunächst die Daten im Arbeitsblatt\n"
              "und starten Sie anschließend die Berechnung erneut.");
}

TEST_F(Refusals, wrong_flags_are_told_in_the_order_of_their_reading) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int row = 5; row <= 9; ++row) set_fixed_text(row, "yes");
    const auto place = [](const Box& box) { return box.lines.at(5); };
    std::vector<std::string> places;
    for (const Box& box : refusal())
        if (box.lines.size() == 9) places.push_back(place(box));
    EXPECT_THAT(places, testing::ElementsAre("in column 3 / row 5 .", "in column 3 / row 6 .",
                                             "in column 3 / row 8 .", "in column 3 / row 9 .",
                                             "in column 3 / row 7 ."));
}

TEST_F(Refusals, a_wrong_row_is_told_whole_and_ends_the_run) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    add_row(line_of_all_methods());
    for (const int column : {4, 10, 32}) rows()[{5, column}] = std::string("x");
    auto boxes = refusal();
    ASSERT_EQ(boxes.size(), 5U);
    EXPECT_EQ(text_of_box(boxes[3]),
              "ZEL V.8.2\nExcel calculation was stopped\n"
              "because of incorrect input values in excel worksheet\nvariable_input_result\n"
              "Please correct the input values\nand start the calculation once more.");
    EXPECT_EQ(text_of_box(boxes[4]), "ZEL V.8.2\nExcel calculation was stopped.\n"
                                     "Please check and correct your Excel calculation sheet\n"
                                     "and start the calculation one more time!");
    lang = LangId::German;
    boxes = refusal();
    EXPECT_EQ(text_of_box(boxes[3]),
              "VOR V.8.2\nExcel-Berechnung wurde wegen fehlerhafter\n"
              "Eingabe-Daten im Excel-Arbeitsblatt\nvariable_input_result\n abgebrochen !");
    EXPECT_EQ(text_of_box(boxes[4]), "VOR V.8.2\nExcel-Berechnung wurde abgebrochen.\n"
                                     "Bitte prüfen Sie  Sie zunächst ihre Arbeitsmappe\n"
                                     "und starten Sie anschließend die Berechnung erneut.");
}

TEST_F(Refusals, in_the_second_pass_a_row_may_be_inactive) {
    // A flag that changes between the passes, as a formula of the hour may.
    class Changing : public MemoryWorkbook {
    public:
        using MemoryWorkbook::MemoryWorkbook;
        std::string text(int row, int column) override {
            const std::string text = MemoryWorkbook::text(row, column);
            if (row != 6 || column != 2 || text.empty()) return text;
            return ++asked_ == 1 ? "1" : text;
        }

    private:
        int asked_ = 0;
    };
    class Store : public WorkbookStore {
    public:
        explicit Store(MemoryWorkbookStore& memory) : memory_(memory) {}
        std::unique_ptr<Workbook> open(const std::string& name) override {
            return std::make_unique<Changing>(memory_, name);
        }

    private:
        MemoryWorkbookStore& memory_;
    };
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 3; ++i) add_row(line_of_all_methods());
    Store changing(store);
    const auto run_with = [&](double flag) {
        rows()[{6, 2}] = flag;
        const Session session = {lang, DecimalSeparator::Point, mode, dialogs};
        return run_batch({changing, path, session, observer});
    };
    const BatchResult inactive = run_with(2);
    EXPECT_EQ(inactive.end, BatchEnd::Done);
    EXPECT_EQ(inactive.rows, 3);
    EXPECT_EQ(inactive.active, 2);
    EXPECT_EQ(inactive.inactive, 1);
    EXPECT_EQ(run_with(3).end, BatchEnd::Refused);
    ASSERT_FALSE(dialogs.shown.empty());
    EXPECT_EQ(dialogs.shown[0].lines.back(),
              "permissible input values: 1 = active / 2 = inaktive / empty = end of calculation");
}

TEST_F(Refusals, of_the_shipped_templates) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    const std::string name = "Template_calc_h_german_80.xlsx";
    const Session session = {LangId::English, DecimalSeparator::Point, mode, dialogs};
    for (const std::string& there :
         {"/data/" + name, std::string("/DATA/template_CALC_h_german_80.XLSX")}) {
        dialogs.shown.clear();
        BatchJob job = {store, there, session, observer};
        job.data_folder = "/data";
        job.real_path = job.path;
        EXPECT_EQ(run_batch(job).end, BatchEnd::Refused);
        ASSERT_EQ(dialogs.shown.size(), 1U);
        EXPECT_EQ(joined(dialogs.shown[0].lines, "\n"),
                  "The file name:\n" + there.substr(6) +
                      "\nis used in this directory.\nYou are not allowed to create another\n"
                      "excel workbook with this name ! \nPlease correct your input !");
    }
    store.files["/elsewhere/" + name] = workbook();
    BatchJob job = {store, "/elsewhere/" + name, session, observer};
    job.data_folder = "/data";
    job.real_path = job.path;
    EXPECT_EQ(run_batch(job).end, BatchEnd::Done);
}

TEST_F(Refusals, of_a_workbook_without_a_sheet) {
    for (const std::string sheet : {"fixed_input", "variable_input_result"}) {
        start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
        workbook().erase(sheet);
        lang = LangId::English;
        const auto boxes = refusal();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(text_of_box(boxes[0]),
                  " Fehler aufgetreten\n"
                  "Error 9 in MOD02EXCEL.S_00_io_excel_gesamt_rahmen_stat\n"
                  "The selected excel-file\nis not containing a excel worksheet named:\n"
                  "   " +
                      sheet + "   \nPlease select a excel worksheet with valid format!");
        lang = LangId::German;
        EXPECT_THAT(text_of_box(refusal()[0]),
                    testing::HasSubstr("Die ausgewählte Excel-Arbeitsmappe\n"
                                       "enthält kein Arbeitsblatt mit Namen:\n   " +
                                       sheet));
    }
}

}  // namespace
}  // namespace zel::excel_batch
