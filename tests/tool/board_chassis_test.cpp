// Boards in the form of public power-sequencer descriptions.
#include <gmock/gmock.h>

#include "railseq/values/controllers.h"
#include "tool/bad_board.h"

namespace RailSeq {
namespace {

using testing::ElementsAre;

// A sequencer of the type with these rails; on one line.
std::string sequencer(std::string const& id, std::string const& type,
                      std::string const& rails = "") {
  return R"({"id": ")" + id + R"(", "type": ")" + type +
         R"(", "i2c_interface": {"bus": 8, "address": "0x11"}, "rails": [)" + rails + "]}";
}

// A board of one chassis; the sequencers begin in line 2, column 1.
std::string boardWith(std::string const& sequencers) {
  return "{\"chassis\": [{\"number\": 1, \"inventory_path\": \"/inv\", \"power_sequencers\": [\n" +
         sequencers + "]}]}";
}

// Where the controllers stand, sorted.
std::vector<std::string> controllersOf(std::string const& text) {
  return controllerPaths(parseBoard("b.json", text).tree(), "config");
}

TEST(ChassisForm, ASequencerBecomesAControllerWithItsRailsAndItsBus) {
  Board const board = parseBoard(
      "b.json", boardWith(sequencer("seq", "UCD90320",
                                    R"({"name": "12V", "page": 7}, {"name": "gpio-only"})")));
  auto const controller = board.config->realUcd9032Controller("seq");
  ASSERT_TRUE(controller);
  EXPECT_EQ(controller->customerName(), Zol::Name("UCD90320"));
  EXPECT_EQ(controller->location(), Zol::String8("/inv"));
  EXPECT_EQ(controller->voltageRail(7)->voltageRailEnvConfig()->name(), Zol::Name("12V"));
  EXPECT_EQ(controller->voltageRailCount(), 1U);
  auto const bus = board.config->dexoDesc("seq-bus");
  EXPECT_EQ(controller->dexoDesc(), bus);
  EXPECT_EQ(bus->busId(), 8);
  EXPECT_EQ(bus->deviceId(), 0x11);
  EXPECT_THAT(board.notes,
              ElementsAre("b.json:2:121: note: the rail \"gpio-only\" has no page and is not put "
                          "into the tree"));
  EXPECT_FALSE(board.status);
}

TEST(ChassisForm, TheTypeTellsTheChip) {
  EXPECT_THAT(
      controllersOf(boardWith(sequencer("a", "UCD90120") + "," + sequencer("b", "UCD90160") + "," +
                              sequencer("c", "UCD90320") + "," + sequencer("d", "PSoC5LP"))),
      ElementsAre("config/realUcd9012Controller[a]", "config/realUcd9012Controller[b]",
                  "config/realUcd9032Controller[c]", "config/realPsocController[d]"));
}

TEST(ChassisForm, ADeviceWithGpiosOnlyIsSkippedWithANote) {
  Board const board = parseBoard("b.json", boardWith(R"({"id": "g", "type": "gpios_only_device",
                                        "power_good_gpio_name": "good"})"));
  EXPECT_THAT(controllerPaths(board.tree(), "config"), ElementsAre());
  EXPECT_THAT(board.notes,
              ElementsAre("b.json:2:1: note: the device \"g\" has GPIOs only and is skipped"));
}

TEST(ChassisForm, NamesCarryTheirChassisWhenThereIsMoreThanOne) {
  std::string const text = R"({"chassis": [
    {"number": 1, "power_sequencers": [)" +
                           sequencer("seq", "UCD90320") + R"(]},
    {"number": 2, "power_sequencers": [)" +
                           sequencer("seq", "UCD90320") + "]}]}";
  EXPECT_THAT(controllersOf(text), ElementsAre("config/realUcd9032Controller[chassis1-seq]",
                                               "config/realUcd9032Controller[chassis2-seq]"));
}

TEST(ChassisTemplates, VariablesAreInsertedIntoAllTexts) {
  Board const board = parseBoard("b.json", R"({
    "chassis_templates": [{"id": "node", "comments": ["${not_a_variable}"],
      "number": "${n}", "inventory_path": "/inv/${n}/${side}",
      "power_sequencers": [{"id": "seq_${side}", "type": "UCD90320",
        "i2c_interface": {"bus": "${bus}", "address": "0x1${n}"},
        "rails": [{"name": "12V", "page": "${n}"}]}]}],
    "chassis": [
      {"template_id": "node",
       "template_variable_values": {"n": "1", "side": "left", "bus": "8"}},
      {"template_id": "node",
       "template_variable_values": {"n": 2, "side": "right", "bus": "9", "spare": "x"}}]})");
  auto const right = board.config->realUcd9032Controller("chassis2-seq_right");
  ASSERT_TRUE(right && board.config->realUcd9032Controller("chassis1-seq_left"));
  EXPECT_EQ(board.config->dexoDesc("chassis2-seq_right-bus")->busId(), 9);
  EXPECT_EQ(board.config->dexoDesc("chassis2-seq_right-bus")->deviceId(), 0x12);
  EXPECT_TRUE(right->voltageRail(2));
  EXPECT_EQ(board.notes.at(0),
            "b.json:10:7: note: the variable \"spare\" is not used by the template");
}

TEST(ChassisFormRefusal, OfSequencersSaysWhatOneTakes) {
  expectRefused(
      {{boardWith(sequencer("a", "UCD90240")),
        "2:21: found a power sequencer of type \"UCD90240\", expected a type UCD901xx, UCD903xx or "
        "PSoC"},
       {boardWith(sequencer("a", "UCD90320") + ",\n" + sequencer("a", "UCD90120")),
        "3:8: found the controller name \"a\" again after line 2, expected each controller name "
        "once"},
       {boardWith("{\"id\": \"a\", \"type\": \"UCD90320\", \"colour\": 1}"),
        "2:33: found the unknown key \"colour\" in a power sequencer, expected id, type, "
        "i2c_interface, power_control_gpio_name, power_good_gpio_name or rails"},
       {boardWith("{\"id\": \"a\", \"type\": \"UCD90320\"}"),
        "2:1: found a power sequencer without \"i2c_interface\", expected the key "
        "\"i2c_interface\""},
       {boardWith("{\"id\": \"a\", \"type\": \"UCD90320\",\n\"i2c_interface\": {\"bus\": 1, "
                  "\"address\": \"0x80\"}}"),
        "3:40: found the text \"0x80\", expected a text from \"0x00\" to \"0x7f\" for address"},
       {boardWith("{\"id\": \"a\", \"type\": \"UCD90320\",\n\"i2c_interface\": {\"bus\": 256}}"),
        "3:26: found the number 256, expected a whole number from 0 to 255 for bus"}});
}

TEST(ChassisFormRefusal, OfRailsSaysWhatOneTakes) {
  expectRefused(
      {{boardWith(sequencer("a", "UCD90320", "\n{\"name\": \"x\", \"page\": 256}")),
        "3:23: found the number 256, expected a whole number from 0 to 255 for page"},
       {boardWith(sequencer("a", "UCD90320",
                            "\n{\"name\": \"x\", \"page\": 1},\n{\"name\": \"y\", \"page\": 1}")),
        "4:23: found page 1 again, the page of rail \"x\", expected each page once in a power "
        "sequencer"},
       {boardWith(sequencer("a", "UCD90320", "\n{\"name\": \"x\"},\n{\"name\": \"x\"}")),
        "4:10: found the rail name \"x\" again, expected each rail name once in a power sequencer"},
       {boardWith(sequencer("a", "UCD90320", "\n{\"name\": \"x\", \"pagee\": 1}")),
        "3:15: found the unknown key \"pagee\" in a rail, expected page"}});
}

TEST(ChassisFormRefusal, OfTemplatesSaysWhatTheFileHas) {
  expectRefused(
      {{R"({"chassis": [{"template_id": "x"}]})",
        "1:30: found the unknown template \"x\", expected a template of the file, which has none"},
       {"{\"chassis_templates\": [{\"id\": \"t\",\n\"number\": \"${n}\", \"power_sequencers\": "
        "[]}],\n\"chassis\": [{\"template_id\": \"t\", \"template_variable_values\": {\"m\": "
        "\"1\"}}]}",
        "2:11: found the unknown variable \"n\", expected m, in template \"t\" as used at line 3"},
       {"{\"chassis_templates\": [{\"id\": \"t\"},\n{\"id\": \"t\"}], \"chassis\": []}",
        "2:8: found the template id \"t\" again, expected each template id once"},
       {"{\"chassis\": [\n{\"number\": 1, \"power_sequencers\": []},\n{\"number\": 1, "
        "\"power_sequencers\": []}]}",
        "3:12: found the chassis number 1 again after line 2, expected each chassis number once"}});
}

}  // namespace
}  // namespace RailSeq
