// Forward declarations and the small aliases that every header of the runtime needs.
#pragma once

#include <cstdint>

// The object runtime: counted objects, texts, entities and their listeners, collections, the
// registry of types, and access by name.
namespace Zol {

// Names an attribute within its class. Negative on a stream: removal of a member of that attribute.
using AttributeId = std::int32_t;

// Handed to `onNotificationException` when the pass told of the end of the last reference.
inline constexpr AttributeId kZeroReferencesId = 5;
// Parent attribute id of an entity that no holder has taken; also the id of an orphan's message.
inline constexpr AttributeId kOrphanAttrId = 136;

class Activity;
class ActivityConfig;
class ActivitySm;
class Dir;
class Entity;
class GenericIf;
class Name;
class PtrInterface;
class String8;
class ZolAttr;
class ZolType;

// Marks the constructor of a value that reads it from a message.
struct StreamBogon {};

namespace NboAttrLog {
class Connection;
class Demuxer;
class FlowIn;
class FlowOut;
class In;
class Out;
}  // namespace NboAttrLog

}  // namespace Zol
