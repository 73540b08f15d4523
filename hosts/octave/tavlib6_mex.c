/* tavlib6 for GNU Octave and MATLAB: every export of the library as one MEX function.
 *
 *   h = tavlib6('HPT', p, T)                  numbers or arrays, broadcast like .* broadcasts
 *   [ok, p, T] = tavlib6('PT1HS', h, s)       the value, then the output cells
 *   cp = tavlib6('gCPGST', 'N2:79;O2:21', T)  composition texts as strings
 *   p = tavlib6('PST', [300 200], 'nan')      NaN where a call failed instead of an error
 *   [p, codes] = tavlib6('PST', [300 200], 'nan')   and the error code of every element
 *   names = tavlib6()                         the names of the exports
 *
 * Names are the exports' without the tvl prefix, in any case. A failed call raises an error
 * with the identifier tavlib6:codeN (N the library's code) and the library's text. Arrays go
 * through the batch library libtavlib6x in one call (tvlxEVALUATE), each element with the
 * frame of a plain call; the few exports it does not take (texts as results, the error
 * functions, windows) are called directly with scalar arguments.
 *
 * Only the MEX interface is used, so the same file builds with Octave's `mkoctfile --mex` and
 * with MATLAB's `mex`; the export table beside it is generated from exports.txt.
 */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "mex.h"
#include "tavlib6.h"
#include "tavlib6x.h"

typedef struct {
    double number;
    const char* text;
    const tvlWideChar* wide;
} Value;

typedef struct {
    const char* name;
    const char* kinds; /* d double, i int32, s text, o output cell, w window, W word */
    char result;       /* d double, i int32, s text, S wide text */
    Value (*direct)(const double* numbers, const char* const* texts);
} ExportRow;

#include "mex_exports.inc"

enum { kMaxArguments = 32, kMaxDimensions = 32 };

static const ExportRow* findExport(const char* name) {
    size_t k;
    if ((name[0] == 't' || name[0] == 'T') && (name[1] == 'v' || name[1] == 'V') && (name[2] == 'l' || name[2] == 'L'))
        name += 3;
    for (k = 0; k < sizeof kExports / sizeof kExports[0]; ++k) {
        const char* a = kExports[k].name;
        const char* b = name;
        while (*a && *b && (*a | 32) == (*b | 32)) ++a, ++b;
        if (*a == 0 && *b == 0) return &kExports[k];
    }
    return NULL;
}

static size_t countKinds(const char* kinds, const char* wanted) {
    size_t count = 0;
    for (; *kinds; ++kinds) count += strchr(wanted, *kinds) != NULL;
    return count;
}

/* "error 2: 2. Parameters are out of range.": the library's text for a code, which stays the
 * last error, as it is after the failed call. */
static void describe(int32_t code, char* text, size_t size) {
    tvlSETLASTERROR(code);
    snprintf(text, size, "error %d: %s", (int)code, tvlGETLASTERRORDESCRIPTION());
}

static void fail(const char* name, int32_t code, size_t index, size_t count) {
    char text[400];
    char identifier[32];
    describe(code, text, sizeof text);
    snprintf(identifier, sizeof identifier, "tavlib6:code%d", (int)code);
    if (count > 1)
        mexErrMsgIdAndTxt(identifier, "%s: %s (element %lu of %lu)", name, text, (unsigned long)index + 1,
                          (unsigned long)count);
    mexErrMsgIdAndTxt(identifier, "%s: %s", name, text);
}

/* A real numeric or logical argument as a double array. */
static const mxArray* numericArgument(const mxArray* argument, const char* name, size_t position) {
    mxArray* converted;
    if (mxIsDouble(argument) && !mxIsComplex(argument) && !mxIsSparse(argument)) return argument;
    if ((!mxIsNumeric(argument) && !mxIsLogical(argument)) || mxIsComplex(argument) || mxIsSparse(argument))
        mexErrMsgIdAndTxt("tavlib6:argument", "%s: argument %lu must be real numbers", name,
                          (unsigned long)position);
    mexCallMATLAB(1, &converted, 1, (mxArray**)&argument, "double");
    return converted;
}

static mwSize dimension(const mxArray* array, mwSize d) {
    return d < mxGetNumberOfDimensions(array) ? mxGetDimensions(array)[d] : 1;
}

/* The shape that all numeric arguments broadcast to: each dimension equal or 1. */
static mwSize broadcastShape(const mxArray* const* arrays, size_t count, const char* name, mwSize* shape) {
    mwSize dims = 2, d;
    size_t k;
    for (k = 0; k < count; ++k)
        if (mxGetNumberOfDimensions(arrays[k]) > dims) dims = mxGetNumberOfDimensions(arrays[k]);
    if (dims > kMaxDimensions) mexErrMsgIdAndTxt("tavlib6:size", "%s: too many dimensions", name);
    for (d = 0; d < dims; ++d) {
        shape[d] = 1;
        for (k = 0; k < count; ++k) {
            const mwSize n = dimension(arrays[k], d);
            if (n == 1) continue;
            if (shape[d] != 1 && shape[d] != n)
                mexErrMsgIdAndTxt("tavlib6:size", "%s: argument sizes do not broadcast (dimension %lu: %lu and %lu)",
                                  name, (unsigned long)d + 1, (unsigned long)shape[d], (unsigned long)n);
            shape[d] = n;
        }
    }
    return dims;
}

/* The values of `array` laid out in the broadcast shape, column-major. */
static double* expand(const mxArray* array, const mwSize* shape, mwSize dims, size_t count) {
    double* out = (double*)mxMalloc(count * sizeof(double));
    const double* in = mxGetPr(array);
    mwSize index[kMaxDimensions] = {0};
    size_t step[kMaxDimensions];
    size_t k, offset = 0, stride = 1;
    mwSize d;
    for (d = 0; d < dims; ++d) {
        step[d] = dimension(array, d) == 1 ? 0 : stride;
        stride *= dimension(array, d);
    }
    for (k = 0; k < count; ++k) {
        out[k] = in[offset];
        for (d = 0; d < dims; ++d) {
            offset += step[d];
            if (++index[d] < shape[d]) break;
            offset -= step[d] * index[d];
            index[d] = 0;
        }
    }
    return out;
}

static mxArray* wideString(const tvlWideChar* wide) {
    char text[1024];
    size_t n = 0;
    for (; *wide && n + 4 < sizeof text; ++wide) { /* UTF-16 to UTF-8; the library's texts are ASCII */
        unsigned c = *wide;
        if (c < 0x80) {
            text[n++] = (char)c;
        } else if (c < 0x800) {
            text[n++] = (char)(0xC0 | c >> 6);
            text[n++] = (char)(0x80 | (c & 0x3F));
        } else {
            text[n++] = (char)(0xE0 | c >> 12);
            text[n++] = (char)(0x80 | (c >> 6 & 0x3F));
            text[n++] = (char)(0x80 | (c & 0x3F));
        }
    }
    text[n] = 0;
    return mxCreateString(text);
}

static void listNames(mxArray* plhs[]) {
    size_t count = sizeof kExports / sizeof kExports[0], k;
    plhs[0] = mxCreateCellMatrix(count, 1);
    for (k = 0; k < count; ++k) mxSetCell(plhs[0], k, mxCreateString(kExports[k].name));
}

/* One call of an export that the batch library does not take; scalar arguments only. */
static void callDirectly(const ExportRow* row, const mxArray* const* numbers, size_t numberCount,
                         const char* const* texts, int nanOnFailure, int nlhs, mxArray* plhs[]) {
    double values[kMaxArguments];
    size_t k;
    Value v;
    int32_t code = 0;
    for (k = 0; k < numberCount; ++k) {
        if (mxGetNumberOfElements(numbers[k]) != 1)
            mexErrMsgIdAndTxt("tavlib6:argument", "%s: takes one number per argument", row->name);
        values[k] = mxGetPr(numbers[k])[0];
        if (row->kinds[k] == 'i' && !(values[k] >= -2147483648.0 && values[k] <= 2147483647.0 && values[k] == (int32_t)values[k]))
            mexErrMsgIdAndTxt("tavlib6:argument", "%s: argument %lu must be a whole number", row->name,
                              (unsigned long)k + 1);
    }
    v = row->direct(values, texts);
    if (strstr(row->name, "LASTERROR") == NULL) code = tvlGETLASTERROR(); /* the error functions report, not fail */
    if (code != 0 && !nanOnFailure) fail(row->name, code, 0, 1);
    if (code != 0 || (row->result == 's' && v.text == NULL) || (row->result == 'S' && v.wide == NULL))
        plhs[0] = mxCreateDoubleScalar(mxGetNaN());
    else if (row->result == 's')
        plhs[0] = mxCreateString(v.text);
    else if (row->result == 'S')
        plhs[0] = wideString(v.wide);
    else
        plhs[0] = mxCreateDoubleScalar(v.number);
    if (nlhs > 1) plhs[1] = mxCreateDoubleScalar(code);
}

/* The export over arrays in one call of the batch library: the value and the output cells in
 * the broadcast shape, and with one more return value the error code of every element. */
static void evaluate(const ExportRow* row, const mxArray* const* numbers, size_t numberCount, const char* const* texts,
                     int nanOnFailure, int nlhs, mxArray* plhs[]) {
    const size_t outputCount = countKinds(row->kinds, "o");
    size_t k;
    mwSize shape[kMaxDimensions];
    const mwSize dims = broadcastShape(numbers, numberCount, row->name, shape);
    size_t count = 1;
    const double* columns[kMaxArguments];
    int64_t strides[kMaxArguments];
    double* cells[kMaxArguments];
    mxArray* results;
    mxArray* outputs[kMaxArguments];
    int32_t* codes;
    int64_t failed = 0;
    for (k = 0; k < (size_t)dims; ++k) count *= (size_t)shape[k];

    for (k = 0; k < numberCount; ++k) {
        const size_t n = mxGetNumberOfElements(numbers[k]);
        strides[k] = n == 1 ? 0 : 1;
        columns[k] = n == 1 || n == count ? mxGetPr(numbers[k]) : expand(numbers[k], shape, dims, count);
    }
    results = mxCreateNumericArray(dims, shape, mxDOUBLE_CLASS, mxREAL);
    for (k = 0; k < outputCount; ++k) {
        outputs[k] = mxCreateNumericArray(dims, shape, mxDOUBLE_CLASS, mxREAL);
        cells[k] = mxGetPr(outputs[k]);
    }
    codes = (int32_t*)mxCalloc(count ? count : 1, sizeof(int32_t));
    if (count > 0)
        failed = tvlxEVALUATE(row->name, (int64_t)count, columns, strides, texts, mxGetPr(results), cells, codes);
    if (failed < 0)
        mexErrMsgIdAndTxt("tavlib6:name", "%s: cannot be evaluated over arrays", row->name);
    if (failed > 0) {
        for (k = 0; k < count && codes[k] == 0; ++k) {
        }
        if (!nanOnFailure) fail(row->name, codes[k], k, count);
        for (k = 0; k < count; ++k) {
            size_t j;
            if (codes[k] == 0) continue;
            mxGetPr(results)[k] = mxGetNaN();
            for (j = 0; j < outputCount; ++j) cells[j][k] = mxGetNaN();
        }
    }
    plhs[0] = results;
    for (k = 0; k < outputCount; ++k) {
        if ((size_t)nlhs > k + 1) plhs[k + 1] = outputs[k];
        else mxDestroyArray(outputs[k]);
    }
    if ((size_t)nlhs > outputCount + 1) {
        plhs[outputCount + 1] = mxCreateNumericArray(dims, shape, mxDOUBLE_CLASS, mxREAL);
        for (k = 0; k < count; ++k) mxGetPr(plhs[outputCount + 1])[k] = codes[k];
    }
    mxFree(codes);
    for (k = 0; k < numberCount; ++k)
        if (columns[k] != mxGetPr(numbers[k])) mxFree((void*)columns[k]);
}

void mexFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    const ExportRow* row;
    char* name;
    const mxArray* numbers[kMaxArguments];
    const char* texts[kMaxArguments];
    size_t numberCount = 0, textCount = 0, outputCount, given, k;
    int nanOnFailure = 0;

    if (nrhs == 0) {
        listNames(plhs);
        return;
    }
    if (!mxIsChar(prhs[0])) mexErrMsgIdAndTxt("tavlib6:name", "the first argument names the function, e.g. 'HPT'");
    name = mxArrayToString(prhs[0]);
    row = findExport(name);
    if (row == NULL) mexErrMsgIdAndTxt("tavlib6:name", "no function %s (tavlib6() lists them)", name);

    given = (size_t)nrhs - 1;
    if (given == countKinds(row->kinds, "dis") + 1 && mxIsChar(prhs[nrhs - 1])) {
        char* flag = mxArrayToString(prhs[nrhs - 1]);
        nanOnFailure = flag != NULL && (flag[0] | 32) == 'n' && (flag[1] | 32) == 'a' && (flag[2] | 32) == 'n' && flag[3] == 0;
        mxFree(flag);
        given -= nanOnFailure;
    }
    if (given != countKinds(row->kinds, "dis"))
        mexErrMsgIdAndTxt("tavlib6:arguments", "%s: takes %lu arguments, got %lu", row->name,
                          (unsigned long)countKinds(row->kinds, "dis"), (unsigned long)given);
    outputCount = countKinds(row->kinds, "o");
    if ((size_t)nlhs > outputCount + 2)
        mexErrMsgIdAndTxt("tavlib6:outputs", "%s: gives at most %lu values", row->name, (unsigned long)outputCount + 2);

    for (k = 0; row->kinds[k]; ++k) {
        const mxArray* argument = prhs[1 + numberCount + textCount];
        if (row->kinds[k] == 's') {
            if (!mxIsChar(argument))
                mexErrMsgIdAndTxt("tavlib6:argument", "%s: argument %lu must be a text", row->name,
                                  (unsigned long)(numberCount + textCount + 1));
            texts[textCount++] = mxArrayToString(argument);
        } else if (row->kinds[k] == 'd' || row->kinds[k] == 'i') {
            numbers[numberCount] = numericArgument(argument, row->name, numberCount + textCount + 1);
            ++numberCount;
        }
    }

    if (row->direct != NULL) {
        callDirectly(row, numbers, numberCount, texts, nanOnFailure, nlhs, plhs);
    } else {
        evaluate(row, numbers, numberCount, texts, nanOnFailure, nlhs, plhs);
    }

    for (k = 0; k < textCount; ++k) mxFree((void*)texts[k]);
    mxFree(name);
}
