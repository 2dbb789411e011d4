#include "adm_suites.h"

// The dialog manager's suites are the plug-in's own tables, not the host's.
ADMBasicSuite8* sADMBasic = &g_ADMBasicSuite;
ADMDialogSuite9* sADMDialog = &g_ADMDialogSuite;
ADMItemSuite10* sADMItem = &g_ADMItemSuite;
ADMListSuite4* sADMList = &g_ADMListSuite;
ADMEntrySuite6* sADMEntry = &g_ADMEntrySuite;
ADMNotifierSuite2* sADMNotifier = &g_ADMNotifierSuite;
