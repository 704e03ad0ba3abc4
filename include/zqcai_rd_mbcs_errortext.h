/* The error text functions: a status code or the calling thread's last failure as text for a
 * person. Included by zqcai_rd_mbcs.h.
 *
 * Every one takes the caller's buffer of bufferSize bytes. A null buffer or a size of 0 asks
 * for the size: the function returns the text's length in bytes plus one (0 for no text) and
 * writes nothing. Otherwise the text, in the system code page, is copied and terminated; a
 * text too long for the buffer is cut to fit and the function returns the warning 200026.
 * None of them clears the thread's last failure: reading it twice gives the same text.
 *
 * language: 0 English, 1 French, 2 German, 3 Japanese, 4 Korean, 5 Simplified Chinese; any
 * other value is English, and a language without texts falls back to English.
 * ade: 0, 1 or 2, passed on to the translator; any other value counts as 1. */
#ifndef ZQCAI_RD_MBCS_ERRORTEXT_H
#define ZQCAI_RD_MBCS_ERRORTEXT_H

/* The description of a status code, in English, or in the language asked for. An unknown code
 * gives a sentence that says so. */
int32 VorexGetErrorString(int32 errorCode, char errorString[], uInt32 bufferSize);
int32 VorexInternalGetLocalizedErrorString(uInt32 language, int32 errorCode, char errorString[], uInt32 bufferSize);

/* The calling thread's last failure: the code's description, an empty line, then one line per
 * item of the failure's report ("Label: value"). Empty when the thread has not failed. */
int32 VorexGetExtendedErrorInfo(char errorString[], uInt32 bufferSize);
/* The same with the sections chosen by flags: 1 description, 2 report items, 4 where the
 * failure was raised. */
int32 VorexInternalGetLastErrorFormattedText(uInt32 ade, uInt32 language, uInt32 flags, char errorString[],
                                             uInt32 bufferSize);
/* The translator's own description of the last failure's report, as JSON text for tools. */
int32 VorexInternalGetLastErrorDescription(uInt32 ade, int32 language, char errorString[], uInt32 bufferSize);

#endif
