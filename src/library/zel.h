/* The C interface of ZEL: thermal ratings of bare overhead conductors and tubular busbars, as
 * single values and as arrays, and thermal short-circuit strength.
 *
 * A case is what one calculation reads, by named inputs; columns are the inputs that change from
 * element to element; results go into the caller's memory. Numbers are doubles in the units that
 * `zel_input` tells (mm, mm2, ohm/km, degC, A, m/s, W/m2, degrees).
 *
 * Functions may be called from any number of threads at once, as long as no two of them change the
 * same object. No exception passes this interface. What a function returns as `const char *` is
 * UTF-8 and lives as long as the library, but for `zel_last_error`.
 */
#ifndef ZEL_H
#define ZEL_H

/* This is C. NOLINTBEGIN(modernize-use-using, modernize-deprecated-headers) */
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define ZEL_API __attribute__((visibility("default")))

/* Grows when something is added; nothing is ever taken away or changed. */
#define ZEL_INTERFACE 2

typedef enum zel_status {
    ZEL_DONE = 0,
    ZEL_REFUSED = 1, /* an input is wrong, or a name is unknown; nothing was calculated */
    ZEL_FAILED = 2   /* a file cannot be read, or memory is too little */
} zel_status;

typedef enum zel_language { ZEL_GERMAN = 1, ZEL_ENGLISH = 2 } zel_language;

typedef enum zel_area { ZEL_LINE = 0, ZEL_SHORT_CIRCUIT = 1 } zel_area;

typedef enum zel_method {
    ZEL_TB601 = 0, /* Cigre TB 601 (2014) */
    ZEL_TB207 = 1, /* Cigre TB 207 (2002) */
    ZEL_TBB = 2,   /* tubular busbars, RWTH Aachen / Puffer (2018) */
    ZEL_WEBS = 3,  /* Webs (1963) */
    ZEL_KIRN = 4   /* Kirn (1987) */
} zel_method;

/* The release, such as "1.2.3"; the interface that the library was built with. */
ZEL_API const char* zel_version(void);
ZEL_API int zel_interface(void);

/* Why the last call of this thread that did not end with ZEL_DONE failed; stands until the next
 * call of this thread. */
ZEL_API const char* zel_last_error(zel_language language);

/* ---- Codes: one beside each number. Below 0 the number stands and something is to be said of it,
 * 0 is a sound number, above 0 there is none (it is NaN). Codes never change. ---- */

typedef struct zel_code {
    int32_t code;
    const char* name; /* "missing_input" */
    const char* text_de;
    const char* text_en;
} zel_code;

ZEL_API size_t zel_code_count(void);
/* ZEL_REFUSED where `index` is none. */
ZEL_API zel_status zel_code_at(size_t index, zel_code* code);

/* ---- Names of inputs ---- */

typedef enum zel_kind {
    ZEL_NUMBER = 0,
    ZEL_WHOLE_NUMBER = 1,
    ZEL_TEXT = 2,
    ZEL_FLAG = 3,   /* -1 yes, 0 no */
    ZEL_DERIVED = 4 /* a column only: it stands for others, see `about_en` */
} zel_kind;

typedef struct zel_input {
    const char* name;  /* in plain English: "wind_speed", "rated_short_time" */
    const char* field; /* as in case files: "Windgeschwindigkeit_db"; empty if derived */
    const char* unit;  /* "m/s" */
    double low, high;  /* what is allowed; infinite where there is no limit */
    zel_kind kind;
    const char* about_de;
    const char* about_en;
} zel_input;

ZEL_API size_t zel_input_count(zel_area area);
ZEL_API zel_status zel_input_at(zel_area area, size_t index, zel_input* input);

/* ---- Conductors: those shipped, and the user's own ---- */

/* Calls `take` with the full name of each. */
ZEL_API zel_status zel_conductors(void (*take)(const char* name, void* context), void* context);

/* ---- Cases ---- */

typedef struct zel_case zel_case;

/* Null where memory is too little. A new case is that of a new program. */
ZEL_API zel_case* zel_case_new(zel_area area);
ZEL_API zel_case* zel_case_copy(const zel_case* from);
ZEL_API void zel_case_free(zel_case* it);

/* Takes over the named values of a case file, or of its JSON text; former ones of the same name are
 * replaced. */
ZEL_API zel_status zel_case_read_file(zel_case* it, const char* path);
ZEL_API zel_status zel_case_read_json(zel_case* it, const char* json);
/* One value, by its name or its field. */
ZEL_API zel_status zel_case_set_number(zel_case* it, const char* name, double number);
ZEL_API zel_status zel_case_set_text(zel_case* it, const char* name, const char* text);
ZEL_API zel_status zel_case_set_flag(zel_case* it, const char* name, int yes);
ZEL_API zel_status zel_case_unset(zel_case* it, const char* name);
/* The conductor of the library with that name, or of the exchange record in that file. It goes
 * before the conductor's values of the case. */
ZEL_API zel_status zel_case_set_conductor(zel_case* it, const char* record_or_name);

/* Whether the case selects `method` (`rechnung_webs_merker_db`, ...). */
ZEL_API zel_status zel_case_selects(const zel_case* it, zel_method method, int* yes);

/* ---- Arrays ---- */

/* Numbers with a distance of `stride` bytes; a stride of 0 repeats the first. */
typedef struct zel_column {
    const char* name; /* of an input */
    const double* numbers;
    ptrdiff_t stride;
} zel_column;

/* Where results go; null where they are not wanted. */
typedef struct zel_numbers {
    double* numbers;
    ptrdiff_t stride;
} zel_numbers;
typedef struct zel_codes {
    int32_t* codes;
    ptrdiff_t stride;
} zel_codes;

typedef struct zel_options zel_options;
/* Null where memory is too little. Wherever options are asked for, null stands for the defaults. */
ZEL_API zel_options* zel_options_new(void);
ZEL_API void zel_options_free(zel_options* it);
/* 0 (the default): one thread for each processor. The results are the same for every number. */
ZEL_API zel_status zel_options_threads(zel_options* it, unsigned threads);
typedef enum zel_given {
    ZEL_AS_IN_CASE = 0,          /* the default */
    ZEL_TEMPERATURE_GIVEN = 1,   /* the current is sought */
    ZEL_CURRENT_GIVEN = 2,       /* the temperature is sought; the current of one sub-conductor */
    ZEL_BUNDLE_CURRENT_GIVEN = 3 /* the same, the current of the bundle is given */
} zel_given;
ZEL_API zel_status zel_options_given(zel_options* it, zel_given given);
/* The heat capacity in transients: 1 (the default) with its temperature coefficient, 0 constant. */
ZEL_API zel_status zel_options_heat_capacity(zel_options* it, int with_temperature);

/* What the column of the global radiation is. Webs and Kirn apply the height of the sun to it, the
 * other methods take it as it meets the conductor. Since interface 2. */
typedef enum zel_radiation {
    ZEL_AS_IT_STANDS = 0,   /* the default: each method takes it so */
    ZEL_HORIZONTAL = 1,     /* on level ground; TB601, TB207 and TBB divide it by the sine of the
                               sun's height (10 degrees at least), up to 1400 W/m2, and so need
                               latitude, longitude and time */
    ZEL_MEETS_CONDUCTOR = 2 /* as it meets the conductor */
} zel_radiation;
ZEL_API zel_status zel_options_radiation(zel_options* it, zel_radiation radiation);

typedef struct zel_steady {
    zel_numbers current;           /* A, of the bundle */
    zel_numbers conductor_current; /* A, of one sub-conductor */
    zel_numbers temperature;       /* degC */
    zel_numbers wind_angle;        /* degrees between wind and line that the rating is for */
    zel_codes code;
} zel_steady;

/* Steady states of `count` elements: the current where the temperature is given, the temperature
 * where the current is. */
ZEL_API zel_status zel_rate_steady(const zel_case* it, const zel_options* options,
                                   zel_method method, const zel_column* columns,
                                   size_t column_count, size_t count, const zel_steady* out);

typedef struct zel_tatl {
    zel_numbers patl; /* A, of the bundle: permanent rating */
    zel_numbers tatl; /* A, of the bundle: for `duration` after `preload_percent` */
    zel_numbers wind_angle;
    zel_codes patl_code;
    zel_codes tatl_code;
} zel_tatl;

/* Permanent and temporary ratings by Cigre TB 601, to the `conductor_temperature`. */
ZEL_API zel_status zel_rate_tatl(const zel_case* it, const zel_options* options,
                                 const zel_column* columns, size_t column_count, size_t count,
                                 const zel_tatl* out);

#define ZEL_STATE_CHANGES 6

typedef struct zel_state_change {
    zel_numbers current;     /* A, of the bundle */
    zel_numbers temperature; /* degC at its end */
    zel_numbers duration;    /* s */
    zel_codes code;
} zel_state_change;

/* The changes of state of the case (`Z1_merker_db`, ...) from its steady state, by TB601, TB207 or
 * TBB. */
ZEL_API zel_status zel_rate_transient(const zel_case* it, const zel_options* options,
                                      zel_method method, const zel_column* columns,
                                      size_t column_count, size_t count,
                                      const zel_state_change out[ZEL_STATE_CHANGES]);

/* Numbers that a short circuit has as results, by name: "I_th", "T_k", "S_th", "S_zul",
 * "verdict_Leiter", ... */
ZEL_API size_t zel_short_circuit_result_count(void);
ZEL_API const char* zel_short_circuit_result_name(size_t index);

/* Short-circuit strength by IEC 60865-1. `out` has a place for each result, in their order. */
ZEL_API zel_status zel_rate_short_circuit(const zel_case* it, const zel_options* options,
                                          const zel_column* columns, size_t column_count,
                                          size_t count, const zel_numbers* out, zel_codes code);

/* Why element `index` has no value: which input or which check refuses it. Goes to `text`, cut to
 * `size` bytes with its closing 0; empty where nothing refuses it. Of a case of short circuits
 * `method` means nothing. */
ZEL_API zel_status zel_explain(const zel_case* it, const zel_options* options, zel_method method,
                               const zel_column* columns, size_t column_count, size_t index,
                               zel_language language, char* text, size_t size);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-use-using, modernize-deprecated-headers) */
#endif
