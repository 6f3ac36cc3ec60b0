// The words of the application and the numbers of the pipeline.
//
// Words compare exactly. Text to number: setters store the result in the entry's element type, so that -1 for
// an unknown word becomes the byte 255. No text at all (null) is no error: each vocabulary has a number for
// it. Number to text: an unknown number is logged and gives the vocabulary's fallback word.
#pragma once

#include <cstdint>

namespace qz {

int isoModeStringToEnum(const char* text);
int contrastModeStringToEnum(const char* text);
int saturationModeStringToEnum(const char* text);
int brightnessModeStringToEnum(const char* text);
int onOffStringToEnum(const char* text);
int sharpnessModeStringToEnum(const char* text);
int meteringModeStringToEnum(const char* text);
int trueFalseStringToEnum(const char* text);
int colorEffectModeStringToEnum(const char* text);
int makeUpEffectModeStringToEnum(const char* text);
int dualPrimaryModeStringToEnum(const char* text);
int exposureModeStringToEnum(const char* text);
int relayoutModeStringToEnum(const char* text);
int mmiAfTestModeStringToEnum(const char* text);
int manualExposureModeStringToEnum(const char* text);
int proFocusModeStringToEnum(const char* text);
int focusAssistFlashModeStringToEnum(const char* text);
int colorModeStringToEnum(const char* text);
int extSceneModeStringToEnum(const char* text);
bool isExtendedScene(int mode);

const char* isoModeEnumToString(uint8_t mode);
const char* contrastModeEnumToString(uint8_t mode);
const char* saturationModeEnumToString(uint8_t mode);
const char* brightnessModeEnumToString(uint8_t mode);
const char* sharpnessModeEnumToString(uint8_t mode);
const char* meteringModeEnumToString(uint8_t mode);
const char* makeUpEffectModeEnumToString(uint8_t mode);
const char* colorEffectModeEnumToString(uint8_t mode);
const char* dualPrimaryEnumToString(uint8_t mode);
const char* exposureModeEnumToString(uint8_t mode);
const char* relayoutModeEnumToString(uint8_t mode);
const char* manualExposureModeEnumToString(uint8_t mode);
const char* focusAssistFlashModeEnumToString(uint8_t mode);
const char* colorModeEnumToString(uint8_t mode);
const char* extSceneModeEnumToString(uint8_t mode);  // null, and no log line, for any but the extended modes

}  // namespace qz
