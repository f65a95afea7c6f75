// All kinds of attributes, for whoever stamps an adapter.
#pragma once

#include "host/zol/attrlog/children.h"
#include "host/zol/attrlog/make_adapter.h"
#include "host/zol/attrlog/reference.h"
#include "host/zol/attrlog/references.h"
#include "host/zol/attrlog/scalar.h"
#include "host/zol/attrlog/singleton.h"
#include "host/zol/attrlog/text.h"
#include "host/zol/attrlog/texts.h"
#include "host/zol/attrlog/values.h"
#include "host/zol/reactor_adapter.h"
