#include "measuring/measuring_ports.h"

#include <array>

#include "platform/errors.h"

namespace zel::measuring {
namespace {

using S = ProgramSettings;

constexpr std::array<PortOwner, 2> owners = {{
    {"mUltraschallanemometer",
     {"Ultraschallanemometer", "Ultrasonic anemometer"},
     "MUCOM",
     &S::MUCOM,
     &S::MUCOM_line,
     "Ultraschallanemomter"},
    {"mGlobalstrahlungsmesser",
     {"Globalstrahlungsmesser", "Global radiation meter"},
     "MGCOM",
     &S::MGCOM,
     &S::MGCOM_line,
     "Globalstrahlungsmesser"},
}};
constexpr std::array<std::string_view, 2> english_names = {"ultrasonic anemometer",
                                                           "global radiation meter"};

constexpr Text captions[] = {{"USB"}, {"COM 1"}, {"COM 2"}, {"COM 3"}};
constexpr TextMember devices[] = {&S::Port1_dev, &S::Port2_dev, &S::Port3_dev, &S::Port4_dev};

constexpr Text title = {" Belegungsmeldung serielle Schnittstelle", " Assignment of a serial port"};
constexpr BoxText question = {Icon::Warning,
                              title,
                              {"Das Verändern dieser Einstellungen ist nur bei Neueinrichtung \n"
                               "der Hardware notwendig und kann bei Fehlbedienung \n"
                               "zur Fehl- bzw.Nichtfunktion der Meßeinrichtung führen ! \n"
                               "Wollen Sie die Einstellungen wirklich ändern?",
                               "Changing these settings is only necessary when hardware \n"
                               "is set up anew, and may keep the instruments from \n"
                               "working properly or at all ! \n"
                               "Do you really want to change the settings?"},
                              Buttons::YesNo,
                              Answer::No};
constexpr BoxText taken = {Icon::Stop,
                           title,
                           {"Diese Schnittstelle ist bereits vom {0} belegt. \n"
                            "Sie müssen zunächst dessen Belegung abändern ! ",
                            "This port is already assigned to the {0}. \n"
                            "You have to change its assignment first ! "}};
constexpr BoxText assigned = {Icon::None,
                              title,
                              {"Die serielle Schnittstelle COM {0} ist nun vom \n{1} belegt !",
                               "The serial port COM {0} is now assigned to the \n{1} !"}};

constexpr Text no_port = {"die Schnittstelle {0} gibt es nicht, nur 1 bis 4",
                          "there is no port {0}, only 1 to 4"};
constexpr Text no_line = {"{0} ist keine Baudrate mit Rahmen wie 9600 8N1",
                          "{0} is no baud rate with a frame like 9600 8N1"};

std::string_view name_in(LangId lang, std::size_t owner) {
    return lang == LangId::English ? english_names.at(owner) : owners.at(owner).telling_name;
}

Connection connection(std::size_t owner, const ProgramSettings& settings) {
    const PortOwner& row = owners.at(owner);
    const std::int16_t port = settings.*row.setting;
    if (port < 1 || port > port_count)
        throw InputError(at(std::string(row.item), Reason(no_port, {std::to_string(port)})));
    return {settings.*devices[port - 1], line_of(owner, settings)};
}

}  // namespace

const PortOwner& port_owner(std::size_t owner) { return owners.at(owner); }

Text port_caption(std::int16_t port) { return captions[port - 1]; }

PortItem port_item(std::size_t owner, std::int16_t port, const ProgramSettings& settings) {
    return {settings.*owners.at(owner).setting == port,
            settings.*owners.at(1 - owner).setting != port};
}

void assign_port(std::size_t owner, std::int16_t port, Settings& settings, Dialogs& dialogs,
                 LangId lang) {
    if (dialogs.show(box_in(lang, question)) != Answer::Yes) return;
    if (settings.now().*owners.at(1 - owner).setting == port) {
        dialogs.show(box_in(lang, taken, {name_in(lang, 1 - owner)}));
        return;
    }
    settings.set(owners.at(owner).setting, port);
    dialogs.show(box_in(lang, assigned, {std::to_string(port), name_in(lang, owner)}));
}

PortLine line_of(std::size_t owner, const ProgramSettings& settings) {
    const PortOwner& row = owners.at(owner);
    const std::string& text = settings.*row.line;
    if (const auto line = port_line(text)) return *line;
    throw InputError(at(std::string(row.item) + "_line", Reason(no_line, {in_quotes(text)})));
}

Connections connections(const ProgramSettings& settings) {
    return {connection(anemometer_owner, settings), connection(radiation_owner, settings)};
}

}  // namespace zel::measuring
