// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include <velk/velk.h>

#include <stdio.h>
#include <string.h>

int main(void)
{
    const char* version = "";
    velk_Common_GetVersion(&version);
    printf("velk %s\n", version);
    return strcmp(version, VELK_VERSION_STRING);
}
