/*
 * Init.h - the add-on's entry point and its lifecycle callbacks: start-up
 * registration, the quit query and the quit clean-up.
 */
#ifndef TW_INIT_H
#define TW_INIT_H

#include "CvnAPI.h"

/* The host's entry into the add-on, called once after loading. */
extern "C" __attribute__((visibility("default"))) void InitCvnAddOn113(void);

namespace corvane::cvnutildataio {

/* TRUE lets the host quit; FALSE (after a message) while the main dialog
   is up. */
Boolean_t QueryQuitCallback(void);
/* On the quit state change frees the file information, LastUsedConfig and
   the line filters' value array; other state changes are ignored. */
void StateChangeCallback(StateChange_e StateChange, long CallData);
/* Start-up hook of the dialog builder; does nothing. */
void InitTGB(void);

} // namespace corvane::cvnutildataio

#endif
