// The expected schema as one table.
#include "registry/expected_schema.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace ExpectedSchema {

namespace {

Args const kControllerArgs = {{"name", "Zol::Name"},
                              {"customerName", "Zol::Name"},
                              {"dexoDesc", "Hardware::DexoDesc"},
                              {"resetGpioPinConfig", "Hardware::Gpio::PinConfig"},
                              {"resetGpioPinStatus", "Hardware::Gpio::PinStatus"}};

Args const kNameArg = {{"name", "Zol::Name"}};

Type enumeration(char const* name, std::vector<std::string> enumerators) {
  return {name, Kind::enumeration, "", {}, {}, std::move(enumerators)};
}

// A record is made from its fields.
Type record(char const* name, std::vector<Attr> fields) {
  Args args;
  for (Attr const& field : fields) args.emplace_back(field.name, field.value);
  return {name, Kind::record, "", std::move(args), std::move(fields)};
}

// clang-format off
std::vector<Type> const kTypes = {
    enumeration("OperationalMode", {"modeNormal", "diagMode"}),
    enumeration("CauseType", {"other", "gpio", "mon"}),
    enumeration("ReloadCauses", {"rc_unknown", "none", "powerLoss", "watchdog", "reboot", "remoteReboot", "overTemp", "scdSeuError", "dpmSeuError", "cpldSeuError", "upperDpmSeuError", "upperScdSeuError", "internalRail", "plxError", "fansMissing", "lower", "upper", "cpu", "lowerScdSeuError", "systemPowerLoss", "systemOverTemp", "systemWatchdog"}),
    enumeration("Ucd9012DiagCommand", {"commandNoop", "commandMarginLow", "commandMarginHigh", "commandNominal", "commandReadTemperature", "commandReadVoltage"}),
    {"Ucd9012DiagConfig", Kind::entity, "Zol::Entity", kNameArg,
     {{"command", 258, "S", "Hardware::Ucd9012::Ucd9012DiagCommand"},
      {"parameter", 259, "V", "Zol::String8", "U32"},
      {"epoch", 260, "S", "U32"}}},
    {"Ucd9012DiagModeConfig", Kind::entity, "Zol::Entity", kNameArg,
     {{"operationalMode", 258, "S", "Hardware::Ucd9012::OperationalMode"},
      {"diagCommandConfig", 259, "C", "Hardware::Ucd9012::Ucd9012DiagConfig"}}, {}, "Zol::Name"},
    enumeration("Ucd9012DiagResult", {"success", "failure"}),
    {"Ucd9012DiagStatus", Kind::entity, "Zol::Entity", kNameArg,
     {{"result", 258, "S", "Hardware::Ucd9012::Ucd9012DiagResult"},
      {"data", 259, "S", "Zol::String8"},
      {"epoch", 260, "S", "U32"}}, {}, "Zol::Name"},
    {"VoltageRailConfig", Kind::entity, "Zol::Entity", {{"id", "U8"}, {"voltageRailEnvConfig", "Environment::Power::VoltageRailConfig"}, {"voltageRailEnvStatus", "Environment::Power::VoltageRailStatus"}},
     {{"id", 258, "P", "U8"},
      {"voltageRailEnvConfig", 259, "PR", "Environment::Power::VoltageRailConfig"},
      {"voltageRailEnvStatus", 260, "PR", "Environment::Power::VoltageRailStatus"},
      {"overrideVoutUvLimit", 261, "S", "Units::Volts"},
      {"overrideVoutOvLimit", 262, "S", "Units::Volts"},
      {"overridePowerGoodOff", 263, "S", "Units::Volts"},
      {"sensorMib", 264, "R", "EntityMib::Sensor"}}, {}, "U8"},
    record("UcdCause",
     {{"reloadCauseKey", 2, "P", "Hardware::Ucd9012::ReloadCauses"},
      {"type", 3, "P", "Hardware::Ucd9012::CauseType"},
      {"id", 4, "P", "U32"},
      {"isRemote", 5, "P", "bool"}}),
    record("PsocCause",
     {{"reloadCauseKey", 2, "P", "Hardware::Ucd9012::ReloadCauses"},
      {"bitNum", 3, "P", "U16"},
      {"origin", 4, "P", "bool"}}),
    record("PageFaultCause",
     {{"reloadCauseKey", 2, "P", "Hardware::Ucd9012::ReloadCauses"},
      {"id", 3, "P", "U32"},
      {"faultMask", 4, "P", "U32"}}),
    record("ExternalVoltageRail",
     {{"railNum", 2, "P", "U8"},
      {"faultType", 3, "P", "U8"}}),
    {"ControllerConfig", Kind::entity, "Hardware::PowerController::ControllerConfig", kControllerArgs,
     {{"generationIdReadVoltage", 386, "SV", "U32"},
      {"generationIdTemperature", 387, "SV", "U32"},
      {"isMainController", 388, "SV", "bool"},
      {"location", 389, "SV", "Zol::String8"},
      {"voltageRail", 390, "MV", "Hardware::Ucd9012::VoltageRailConfig", "U8", "id"},
      {"reloadCauseSortKey", 391, "SV", "U32"},
      {"reloadCause", 392, "VV", "Hardware::Ucd9012::UcdCause", "U32"},
      {"psocReloadCause", 393, "VV", "Hardware::Ucd9012::PsocCause", "U32"},
      {"pageFaultCause", 394, "VV", "Hardware::Ucd9012::PageFaultCause", "U32"},
      {"externalVoltageRail", 395, "VV", "Hardware::Ucd9012::ExternalVoltageRail", "U32"},
      {"operationalMode", 396, "SV", "Hardware::Ucd9012::OperationalMode"},
      {"diagCommandConfig", 397, "CV", "Hardware::Ucd9012::Ucd9012DiagConfig"},
      {"diagModeConfig", 398, "MV", "Hardware::Ucd9012::Ucd9012DiagModeConfig", "Zol::Name", "name"},
      {"kernelPanicEepromDexo", 399, "CV", "I2cDexo::DexoDesc"},
      {"kernelPanicEepromWp", 400, "RV", "Fru::Gpo"},
      {"shutdownEnabled", 401, "SV", "bool"},
      {"pollingEnabled", 402, "SV", "bool"},
      {"configReady", 403, "SV", "bool"},
      {"modelName", 404, "SV", "Zol::String8"},
      {"description", 405, "SV", "Zol::String8"},
      {"ready", 406, "SV", "bool"},
      {"debugPowerOff", 407, "SV", "bool"}}},
    enumeration("KernelPanicEepromStatus", {"eepromReloadCauseUnknown", "eepromReloadCauseKernelPanic", "eepromReloadCauseOther"}),
    {"ControllerStatus", Kind::entity, "Hardware::PowerController::ControllerStatus", kNameArg,
     {{"diagCommandStatus", 386, "CV", "Hardware::Ucd9012::Ucd9012DiagStatus"},
      {"operationalMode", 387, "SV", "Hardware::Ucd9012::OperationalMode"},
      {"temperature", 388, "SV", "Units::Celsius"},
      {"generationIdReadVoltage", 389, "SV", "U32"},
      {"generationIdTemperature", 390, "SV", "U32"},
      {"resetDescription", 391, "SV", "Zol::String8"},
      {"firmwareMfrDate", 392, "SV", "Zol::String8"},
      {"firmwareVersion", 393, "SV", "Zol::String8"},
      {"hwReady", 394, "SV", "bool"},
      {"reloadDueToKernelPanic", 395, "SV", "Hardware::Ucd9012::KernelPanicEepromStatus"},
      {"kernelPanicEepromCleared", 396, "SV", "bool"},
      {"diagModeStatus", 397, "MV", "Hardware::Ucd9012::Ucd9012DiagStatus", "Zol::Name", "name"}}},
    {"Ucd9012ControllerConfig", Kind::entity, "Hardware::Ucd9012::ControllerConfig", kControllerArgs},
    {"Ucd9012ControllerStatus", Kind::entity, "Hardware::Ucd9012::ControllerStatus", kNameArg},
    {"Ucd9032ControllerConfig", Kind::entity, "Hardware::Ucd9012::ControllerConfig", kControllerArgs},
    {"Ucd9032ControllerStatus", Kind::entity, "Hardware::Ucd9012::ControllerStatus", kNameArg},
    {"PsocControllerConfig", Kind::entity, "Hardware::Ucd9012::ControllerConfig", kControllerArgs},
    {"PsocControllerStatus", Kind::entity, "Hardware::Ucd9012::ControllerStatus", kNameArg},
    {"Config", Kind::entity, "Zol::Entity", kNameArg,
     {{"dexoDesc", 258, "M", "SmbusDexo::DexoDesc", "Zol::Name", "name"},
      {"realUcd9012Controller", 259, "M", "Hardware::Ucd9012::Ucd9012ControllerConfig", "Zol::Name", "name"},
      {"realUcd9032Controller", 260, "M", "Hardware::Ucd9012::Ucd9032ControllerConfig", "Zol::Name", "name"},
      {"realPsocController", 261, "M", "Hardware::Ucd9012::PsocControllerConfig", "Zol::Name", "name"},
      {"controller", 262, "N", "Hardware::Ucd9012::ControllerConfig", "Zol::Name", "name"}}},
    {"Status", Kind::entity, "Zol::Entity", kNameArg,
     {{"realUcd9012Controller", 258, "M", "Hardware::Ucd9012::Ucd9012ControllerStatus", "Zol::Name", "name"},
      {"realUcd9032Controller", 259, "M", "Hardware::Ucd9012::Ucd9032ControllerStatus", "Zol::Name", "name"},
      {"realPsocController", 260, "M", "Hardware::Ucd9012::PsocControllerStatus", "Zol::Name", "name"},
      {"controller", 261, "N", "Hardware::Ucd9012::ControllerStatus", "Zol::Name", "name"}}},
};

// The bases from outside, with all that they define.
std::vector<Type> const kBases = {
    {"Zol::Entity", Kind::entity, "", kNameArg,
     {{"name", 130, "P", "Zol::Name"},
      {"parent", 131, "RV", "Zol::Entity"},
      {"parentAttrId", 132, "SV", "U32"},
      {"fullName", 133, "computed", "Zol::String8"},
      {"zolNboAttrLogSaForMsgChannel", 153, "L", "Zol::Entity"}}},
    {"Hardware::PowerController::ControllerConfig", Kind::entity, "Zol::Entity", kControllerArgs,
     {{"customerName", 258, "P", "Zol::Name"},
      {"dexoDesc", 259, "PR", "Hardware::DexoDesc"},
      {"resetGpioPinConfig", 260, "PR", "Hardware::Gpio::PinConfig"},
      {"resetGpioPinStatus", 261, "PR", "Hardware::Gpio::PinStatus"},
      {"autoStartPowerProgram", 262, "SV", "bool"},
      {"controllerState", 263, "SV", "Hardware::PowerController::ControllerConfig::ControllerState"}}},
    {"Hardware::PowerController::ControllerStatus", Kind::entity, "Zol::Entity", kNameArg,
     {{"controllerState", 258, "SV", "Hardware::PowerController::ControllerStatus::ControllerState"},
      {"controllerVersion", 259, "SV", "Zol::String8"}}},
};

struct Flags {
  std::uint32_t low;
  std::uint32_t high;
  std::uint32_t introspection;
};
std::map<std::string, Flags> const kFlags = {
    {"E",  {0x20001,   0x40200400, 0}},    {"K",  {0x200001,  0x400,      0}},
    {"L",  {0x22001,   0x400,      8}},    {"P",  {0x220109,  0x40000400, 2}},
    {"PR", {0x8220109, 0x40000400, 2}},    {"S",  {0x220143,  0x1000400,  2}},
    {"SV", {0x222143,  0x1000400,  2}},    {"R",  {0x8220143, 0x1000400,  2}},
    {"RV", {0x8222143, 0x1000400,  2}},    {"V",  {0x1a20143, 0x1000400,  2}},
    {"VV", {0x1a22143, 0x1000400,  2}},    {"C",  {0x8220143, 0x11000400, 2}},
    {"CV", {0x8222143, 0x11000400, 2}},    {"M",  {0x9a20143, 0x11000400, 0x22}},
    {"MV", {0x9a22143, 0x11000400, 0x22}}, {"N",  {0x9a20143, 0x1000400,  0x22}},
    {"computed", {0x222101, 0x400, 2}},
};

// The constructors of the bus descriptors from outside.
std::map<std::string, Args> const kOutsideArgs = {
    {"SmbusDexo::DexoDesc", {{"name", "Zol::Name"}, {"device", "Hardware::SmbusDevice"}, {"lobusAccelId", "Hardware::LobusAccelId"}, {"busId", "Hardware::SmbusId"}, {"deviceId", "Hardware::SmbusDeviceId"}, {"addrSize", "Hardware::SmbusAddrSize"}, {"writeNoStopReadCurrent", "bool"}, {"writeDelay", "Hardware::SmbusDelay"}, {"readDelay", "Hardware::SmbusDelay"}, {"bug30005ExtraDelays", "bool"}, {"busTimeout", "Hardware::SmbusTimeout"}, {"smbusAgentId", "Hardware::LobusAgentId"}}},
    {"I2cDexo::DexoDesc", {{"name", "Zol::Name"}, {"busId", "U8"}, {"device", "U8"}}},
};
// clang-format on

std::string line(Attr const& attr, Flags flags) {
  std::ostringstream text;
  text << attr.name << ' ' << attr.id << std::hex << ' ' << flags.low << ' ' << flags.high << ' '
       << flags.introspection << ' ' << attr.value << " key '" << attr.key << "' field '"
       << attr.keyField << '\'';
  return text.str();
}

bool isBase(Type const& type) { return type.name.find("::") != std::string::npos; }

}  // namespace

std::vector<Type> const& types() { return kTypes; }

std::string fullName(Type const& type) {
  return isBase(type) ? type.name : "Hardware::Ucd9012::" + type.name;
}

Type const& type(std::string const& name) {
  for (auto const* list : {&kTypes, &kBases}) {
    for (Type const& candidate : *list) {
      if (candidate.name == name || fullName(candidate) == name) return candidate;
    }
  }
  throw std::logic_error("no type " + name + " is expected");
}

std::vector<Attr> allAttrs(Type const& type) {
  std::vector<Attr> all;
  if (!type.base.empty()) all = allAttrs(ExpectedSchema::type(type.base));
  bool const inherits = std::ranges::any_of(
      all, [](Attr const& attr) { return attr.name == "zolHasAttrLogInterface"; });
  if (type.kind == Kind::entity && !isBase(type) && !inherits) {
    all.push_back({"zolHasAttrLogInterface", 154, "L", "bool"});
  }
  int number = 0;
  for (std::string const& name : type.enumerators) {
    all.push_back({name, number++, "E", fullName(type)});
  }
  all.insert(all.end(), type.attrs.begin(), type.attrs.end());
  if (!type.ownKey.empty()) all.push_back({"fwkKey", 0, "K", type.ownKey});
  return all;
}

bool isBuilt(Attr const& attr) {
  return std::string_view("CMN").find(attr.attrClass[0]) != std::string_view::npos;
}

std::string lineOf(Attr const& attr) {
  Args args;
  if (isBuilt(attr) && attr.attrClass != "N") {
    auto const outside = kOutsideArgs.find(attr.value);
    args = outside == kOutsideArgs.end() ? type(attr.value).args : outside->second;
  }
  return line(attr, kFlags.at(attr.attrClass)) + lineOf(args);
}

std::string lineOf(Zol::ZolAttr const& attr) {
  auto const nameOf = [](Zol::ZolType const* type) {
    return type ? std::string(type->fullName().view()) : std::string();
  };
  Attr const found = {std::string(attr.name().view()),
                      attr.attrId(),
                      "",
                      nameOf(attr.type()),
                      nameOf(attr.keyType()),
                      std::string(attr.keyFieldName().view())};
  return line(found, {attr.flags().low, attr.flags().high, attr.introspectionFlags()}) +
         lineOf(attr.constructorArgNameQIteratorConst(), attr.constructorArgTypeQIteratorConst());
}

std::string lineOf(Args const& args) {
  std::string text;
  for (auto const& [name, type] : args) text.append(", ").append(name).append(" ").append(type);
  return text;
}

std::string lineOf(Zol::TextQueue::IteratorConst name, Zol::TextQueue::IteratorConst type) {
  Args args;
  for (; name && type; ++name, ++type) args.emplace_back(name->view(), type->view());
  if (name || type) args.emplace_back("names and types", "in different numbers");
  return lineOf(args);
}

}  // namespace ExpectedSchema
