// Every attribute of every class through long random sequences of its operations, each compared
// with a model of its kind; the seeds are fixed. The rows come from the classes' lists, so that
// none is missing.
#include "entities/entity_model.h"

#include <utility>

namespace Hardware::Ucd9012::Test {
namespace {

template <class X>
class Recorder;
template <class X>
void addModels(Models& models, X& x);

#define HEARD \
 public:      \
  std::vector<std::string> heard;

template <>
class Recorder<VoltageRailConfig> : public VoltageRailConfig::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/voltage_rail_config.def"
};
template <>
class Recorder<Ucd9012DiagConfig> : public Ucd9012DiagConfig::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/ucd9012_diag_config.def"
};
template <>
class Recorder<Ucd9012DiagModeConfig> : public Ucd9012DiagModeConfig::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/ucd9012_diag_mode_config.def"
};
template <>
class Recorder<Ucd9012DiagStatus> : public Ucd9012DiagStatus::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/ucd9012_diag_status.def"
};
template <>
class Recorder<ControllerConfig> : public ControllerConfig::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/controller_config.def"
};
template <>
class Recorder<ControllerStatus> : public ControllerStatus::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/controller_status.def"
};
template <>
class Recorder<Config> : public Config::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/config.def"
};
template <>
class Recorder<Status> : public Status::Notifiee {
  HEARD
#include "entities/stamp_recorder.h"
#include "schema/status.def"
};

template <>
void addModels(Models& models, VoltageRailConfig& x) {
#include "entities/stamp_model_rows.h"
#include "schema/voltage_rail_config.def"
}
template <>
void addModels(Models& models, Ucd9012DiagConfig& x) {
#include "entities/stamp_model_rows.h"
#include "schema/ucd9012_diag_config.def"
}
template <>
void addModels(Models& models, Ucd9012DiagModeConfig& x) {
#include "entities/stamp_model_rows.h"
#include "schema/ucd9012_diag_mode_config.def"
}
template <>
void addModels(Models& models, Ucd9012DiagStatus& x) {
#include "entities/stamp_model_rows.h"
#include "schema/ucd9012_diag_status.def"
}
template <>
void addModels(Models& models, ControllerConfig& x) {
#include "entities/stamp_model_rows.h"
#include "schema/controller_config.def"
}
template <>
void addModels(Models& models, ControllerStatus& x) {
#include "entities/stamp_model_rows.h"
#include "schema/controller_status.def"
}
template <>
void addModels(Models& models, Config& x) {
#include "entities/stamp_model_rows.h"
#include "schema/config.def"
}
template <>
void addModels(Models& models, Status& x) {
#include "entities/stamp_model_rows.h"
#include "schema/status.def"
}

// The class whose attributes and listeners an entity of class `X` has.
template <class X>
using Attributed = std::conditional_t<
    std::is_base_of_v<ControllerConfig, X>, ControllerConfig,
    std::conditional_t<std::is_base_of_v<ControllerStatus, X>, ControllerStatus, X>>;

template <class X>
Zol::Ptr<X> made() {
  if constexpr (std::is_base_of_v<ControllerConfig, X>) {
    return new X("x", "customer", nullptr, nullptr, nullptr);
  } else if constexpr (std::same_as<X, VoltageRailConfig>) {
    return new X(3, nullptr, nullptr);
  } else {
    return new X("x");
  }
}

template <class X>
class EveryEntity : public ::testing::Test {
 protected:
  Zol::Ptr<X> entity = made<X>();
  // Weak, so that it hears of the end of the entity too.
  Zol::Ptr<Recorder<Attributed<X>>> recorder = [this] {
    Zol::Ptr<Recorder<Attributed<X>>> const listener(new Recorder<Attributed<X>>);
    listener->isRegisteredNotifieeIs(true);
    listener->notifierIs(entity);
    listener->isWeakReferenceIs(true);
    return listener;
  }();
};

using Classes =
    ::testing::Types<VoltageRailConfig, Ucd9012DiagConfig, Ucd9012DiagModeConfig, Ucd9012DiagStatus,
                     Ucd9012ControllerConfig, Ucd9032ControllerConfig, PsocControllerConfig,
                     Ucd9012ControllerStatus, Ucd9032ControllerStatus, PsocControllerStatus, Config,
                     Status>;
TYPED_TEST_SUITE(EveryEntity, Classes);

TYPED_TEST(EveryEntity, DoesWhatTheModelsOfItsAttributesDo) {
  for (unsigned int seed = 1; seed <= 3; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    auto const subject = made<TypeParam>();
    this->recorder->notifierIs(subject);
    Models models;
    addModels<Attributed<TypeParam>>(models, *subject);
    for (auto const& model : models.all) model->check();
    for (int step = 0; step < 1500 && !this->HasFailure(); ++step) {
      Model& model = *models.all[below(random, models.all.size())];
      SCOPED_TRACE(model.attr + " in step " + std::to_string(step));
      std::uint32_t const before = subject->mutationCounter();
      this->recorder->heard.clear();
      Effect const effect = model.step(random);
      EXPECT_EQ(subject->mutationCounter() - before, effect.mutations);
      EXPECT_EQ(this->recorder->heard, effect.heard);
      model.check();
    }
  }
}

TYPED_TEST(EveryEntity, CountsReadsThroughItsAccessorsAndNoReadOfItsName) {
  EXPECT_EQ(this->entity->readCounter(), 0u);
  (void)this->entity->name();
  EXPECT_EQ(this->entity->readCounter(), 0u);
  EXPECT_EQ(this->entity->parentAttrId(), 136);
}

TEST(EndOfAnEntity, TakesTheChildrenOutInOrderAndTellsOfEachButNotOfWhatItOnlyKeeps) {
  auto const endOf = [](auto& entity) {
    using X = Attributed<std::remove_reference_t<decltype(*entity)>>;
    Zol::Ptr<Recorder<X>> const recorder(new Recorder<X>);
    recorder->isRegisteredNotifieeIs(true);
    recorder->notifierIs(entity);
    recorder->isWeakReferenceIs(true);
    entity = nullptr;
    EXPECT_FALSE(recorder->zolNotifier());
    return recorder->heard;
  };
  using Heard = std::vector<std::string>;

  auto controller = made<PsocControllerConfig>();
  controller->kernelPanicEepromDexoIs("k", 1, 2);
  controller->diagModeConfigIs("m");
  controller->diagCommandConfigIs("c");
  controller->voltageRailIs(200, nullptr, nullptr);
  auto const rail = controller->voltageRailIs(7, nullptr, nullptr);
  controller->reloadCauseIs(1, {});
  controller->externalVoltageRailIs(1, {});
  EXPECT_EQ(endOf(controller), (Heard{"voltageRail 7", "voltageRail 200", "diagCommandConfig",
                                      "diagModeConfig m", "kernelPanicEepromDexo"}));
  EXPECT_FALSE(rail->parent());

  auto status = made<Ucd9012ControllerStatus>();
  status->diagModeStatusIs("m");
  status->diagCommandStatusIs("c");
  EXPECT_EQ(endOf(status), (Heard{"diagCommandStatus", "diagModeStatus m"}));

  auto mode = made<Ucd9012DiagModeConfig>();
  mode->diagCommandConfigIs("c");
  EXPECT_EQ(endOf(mode), Heard{"diagCommandConfig"});

  auto root = statusFactory("s");
  root->realPsocControllerIs("p");
  auto const u = root->realUcd9012ControllerIs("u");
  root->controllerIs(u);
  EXPECT_EQ(endOf(root), (Heard{"realUcd9012Controller u", "realPsocController p"}));
  EXPECT_EQ(u->references(), 1u);
}

TEST(Rail, IsKnownByItsNumberAndHasAPath) {
  auto const config = configFactory("b");
  auto const main = config->realUcd9012ControllerIs("m", "", nullptr, nullptr, nullptr);
  auto const rail = main->voltageRailIs(255, nullptr, nullptr);
  EXPECT_EQ(rail->fullName(), "b/realUcd9012Controller[m]/voltageRail[255]");
  EXPECT_TRUE(rail->name().empty());
  EXPECT_EQ(main->kernelPanicEepromDexoIs("k", 1, 2)->fullName(),
            "b/realUcd9012Controller[m]/kernelPanicEepromDexo");
  EXPECT_EQ(rail->overrideVoutUvLimit().value(), -std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
