// The order of the virtual operations, which binds whoever is compiled against the library. On this
// ABI a pointer to a virtual member holds its place in the table.
#include <gtest/gtest.h>
#include <hwrailseq.h>

#include <cstring>
#include <vector>

namespace Hardware::Ucd9012 {
namespace {

#if defined(__x86_64__)

template <class Member>
std::size_t placeOf(Member member) {
  std::size_t word = 0;
  std::memcpy(&word, &member, sizeof word);
  return (word - 1) / sizeof(void*);
}
template <class R, class C, class... Args>
std::size_t slot(R (C::*member)(Args...)) {
  return placeOf(member);
}
template <class R, class C, class... Args>
std::size_t slot(R (C::*member)(Args...) const) {
  return placeOf(member);
}
// Of the overload that takes this argument.
template <class Arg, class R, class C>
std::size_t slotWith(R (C::*member)(Arg)) {
  return placeOf(member);
}
template <class R, class C>
std::size_t slotConst(R (C::*member)() const) {
  return placeOf(member);
}
template <class R, class C>
std::size_t slotMutable(R (C::*member)()) {
  return placeOf(member);
}

void expectConsecutive(std::vector<std::size_t> const& slots) {
  for (std::size_t i = 1; i < slots.size(); ++i) EXPECT_EQ(slots[i], slots[i - 1] + 1) << i;
}

TEST(SlotOrder, OfTheFrame) {
  using E = Zol::Entity;
  expectConsecutive({slot(&E::hasNotificationActiveIs), slot(&E::zolAuditErrors),
                     slot(&E::auditErrors), slot(&E::zeroReferencesIs), slot(&E::fwkType)});
  // The two destructors stand between.
  EXPECT_EQ(slot(&E::name), slot(&E::fwkType) + 3);
  expectConsecutive({slot(&E::name), slotConst(&E::parent), slotMutable(&E::parent),
                     slot(&E::parentIs), slot(&E::parentAttr), slot(&E::parentAttrId),
                     slot(&E::parentAttrIdIs), slot(&E::uriPath), slot(&E::fullName),
                     slot(&E::attributeString), slot(&E::zolNotifieeAdapterIs),
                     slot(&E::handleParent)});
  EXPECT_EQ(slot(&E::hasNotificationActiveIs), 0u);
}

TEST(SlotOrder, OfAControllersConfiguration) {
  using C = ControllerConfig;
  expectConsecutive({slot(&C::autoStartPowerProgramIs),
                     slot(&C::controllerStateIs),
                     slot(&C::generationIdReadVoltageIs),
                     slot(&C::generationIdTemperatureIs),
                     slot(&C::isMainControllerIs),
                     slot(&C::locationIs),
                     slotWith<std::uint8_t>(&C::voltageRailDel),
                     slotWith<C::VoltageRailMap::Iterator&>(&C::voltageRailDel),
                     slot(&C::voltageRailNotify),
                     slot(&C::voltageRailIs),
                     slot(&C::reloadCauseSortKeyIs),
                     slotWith<std::uint32_t>(&C::reloadCauseDel),
                     slotWith<C::ReloadCauseMap::Iterator&>(&C::reloadCauseDel),
                     slot(&C::reloadCauseNotify),
                     slot(&C::reloadCauseIs),
                     slotWith<std::uint32_t>(&C::psocReloadCauseDel),
                     slotWith<C::PsocReloadCauseMap::Iterator&>(&C::psocReloadCauseDel),
                     slot(&C::psocReloadCauseNotify),
                     slot(&C::psocReloadCauseIs),
                     slotWith<std::uint32_t>(&C::pageFaultCauseDel),
                     slotWith<C::PageFaultCauseMap::Iterator&>(&C::pageFaultCauseDel),
                     slot(&C::pageFaultCauseNotify),
                     slot(&C::pageFaultCauseIs),
                     slotWith<std::uint32_t>(&C::externalVoltageRailDel),
                     slotWith<C::ExternalVoltageRailMap::Iterator&>(&C::externalVoltageRailDel),
                     slot(&C::externalVoltageRailNotify),
                     slot(&C::externalVoltageRailIs),
                     slot(&C::operationalModeIs),
                     slot(&C::diagCommandConfigDel),
                     slot(&C::diagCommandConfigIs),
                     slotWith<Zol::Name>(&C::diagModeConfigDel),
                     slotWith<C::DiagModeConfigMap::Iterator&>(&C::diagModeConfigDel),
                     slot(&C::diagModeConfigNotify),
                     slot(&C::diagModeConfigIs),
                     slot(&C::kernelPanicEepromDexoDel),
                     slot(&C::kernelPanicEepromDexoIs),
                     slot(&C::kernelPanicEepromWpIs),
                     slot(&C::shutdownEnabledIs),
                     slot(&C::pollingEnabledIs),
                     slot(&C::configReadyIs),
                     slot(&C::modelNameIs),
                     slot(&C::descriptionIs),
                     slot(&C::readyIs),
                     slot(&C::debugPowerOffIs)});
}

TEST(SlotOrder, OfAControllersStatus) {
  using C = ControllerStatus;
  expectConsecutive(
      {slot(&C::controllerStateIs), slot(&C::controllerVersionIs), slot(&C::diagCommandStatusDel),
       slot(&C::diagCommandStatusIs), slot(&C::operationalModeIs), slot(&C::temperatureIs),
       slot(&C::generationIdReadVoltageIs), slot(&C::generationIdTemperatureIs),
       slot(&C::resetDescriptionIs), slot(&C::firmwareMfrDateIs), slot(&C::firmwareVersionIs),
       slot(&C::hwReadyIs), slot(&C::reloadDueToKernelPanicIs),
       slot(&C::kernelPanicEepromClearedIs), slotWith<Zol::Name>(&C::diagModeStatusDel),
       slotWith<C::DiagModeStatusMap::Iterator&>(&C::diagModeStatusDel),
       slot(&C::diagModeStatusNotify), slot(&C::diagModeStatusIs)});
}

TEST(SlotOrder, OfListeners) {
  using N = ControllerConfig::NotifieeConst;
  expectConsecutive({slot(&N::zolReactor), slot(&N::zolRawReactor), slot(&N::isStreamAdapter),
                     slot(&N::isRegisteredNotifieeIs), slot(&N::zol_bitSetIs), slot(&N::name),
                     slot(&N::notifierIs), slot(&N::handleNotification), slot(&N::handleDefault),
                     slot(&N::onAttribute), slot(&N::onNotification),
                     slot(&N::onCollectionNotification)});
  expectConsecutive({slot(&N::onZeroReferences), slot(&N::activityPtr),
                     slotMutable(&N::zolFwkActivity), slotConst(&N::zolFwkActivity),
                     slot(&N::actsm), slot(&N::onParent), slot(&N::onVersion),
                     slot(&N::onAutoStartPowerProgram), slot(&N::onControllerState),
                     slot(&N::onGenerationIdReadVoltage), slot(&N::onGenerationIdTemperature),
                     slot(&N::onIsMainController), slot(&N::onLocation),
                     slotWith<std::uint8_t>(&N::onVoltageRail), slot(&N::onVoltageRailzolImmediate),
                     slotMutable(&N::onVoltageRail), slot(&N::onReloadCauseSortKey)});
  using D = Ucd9012DiagStatus::NotifieeConst;
  expectConsecutive({slot(&D::onVersion), slot(&D::onResult), slot(&D::onData), slot(&D::onEpoch)});
}

#endif

}  // namespace
}  // namespace Hardware::Ucd9012
