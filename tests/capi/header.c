// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// The header needs nothing before it, and its asserts hold the layout of every record.
#include "velk/velk.h"
