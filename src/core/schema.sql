-- The database at version 4.6. Text columns compare without regard to case,
-- as statements and stored files expect; number columns refuse text (guards added by
-- the build). Counters are INTEGER PRIMARY KEY AUTOINCREMENT: a number is never given twice.

CREATE TABLE competitions (
    competition_id INTEGER PRIMARY KEY AUTOINCREMENT,
    competition_name TEXT COLLATE NOCASE,
    competition_date TEXT COLLATE NOCASE,
    competition_organiser TEXT COLLATE NOCASE,
    organiser_role TEXT COLLATE NOCASE,
    competition_venue TEXT COLLATE NOCASE,
    competition_town TEXT COLLATE NOCASE,
    address TEXT COLLATE NOCASE,
    registration_id TEXT COLLATE NOCASE,
    registration_email TEXT COLLATE NOCASE,
    registration_key TEXT COLLATE NOCASE
);

CREATE TABLE categories (
    competition_id NUMERIC,
    category_id TEXT COLLATE NOCASE,
    category TEXT COLLATE NOCASE
);
CREATE UNIQUE INDEX pk_categories ON categories(competition_id, category_id);

CREATE TABLE dances (
    dance_id INTEGER PRIMARY KEY AUTOINCREMENT,
    dance TEXT COLLATE NOCASE
);

CREATE TABLE category_dances (
    competition_id NUMERIC,
    category_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    orderby NUMERIC,
    CONSTRAINT pk_category_dances PRIMARY KEY (competition_id, category_id, dance_id)
);

CREATE TABLE age_groups (
    group_id INTEGER PRIMARY KEY AUTOINCREMENT,
    competition_id NUMERIC,
    competition_group_id TEXT COLLATE NOCASE,
    age_group TEXT COLLATE NOCASE,
    category TEXT COLLATE NOCASE,
    dance_section TEXT COLLATE NOCASE,
    no_prizes NUMERIC,
    split_overalls TEXT COLLATE NOCASE,
    split_ages TEXT COLLATE NOCASE NOT NULL DEFAULT 'N',
    parent_group_id TEXT COLLATE NOCASE,
    championship_title TEXT COLLATE NOCASE,
    championship_type TEXT COLLATE NOCASE,
    no_overall_prizes INTEGER NOT NULL DEFAULT 6,
    dancer_order TEXT COLLATE NOCASE NOT NULL DEFAULT 'A',
    orderby INTEGER,
    inc_t_fling TEXT COLLATE NOCASE NOT NULL DEFAULT 'Y'
);
CREATE UNIQUE INDEX pk_age_groups_code ON age_groups(competition_id, competition_group_id);

CREATE TABLE judges (
    judge_id INTEGER PRIMARY KEY AUTOINCREMENT,
    competition_id NUMERIC,
    forename TEXT COLLATE NOCASE,
    surname TEXT COLLATE NOCASE
);
CREATE INDEX ix_judges_competition ON judges(competition_id);

CREATE TABLE competitors (
    competition_id NUMERIC,
    competitor_id NUMERIC,
    forename TEXT COLLATE NOCASE,
    surname TEXT COLLATE NOCASE,
    age NUMERIC,
    town TEXT COLLATE NOCASE,
    address1 TEXT COLLATE NOCASE,
    address2 TEXT COLLATE NOCASE,
    postcode TEXT COLLATE NOCASE,
    fee NUMERIC,
    date_received TEXT COLLATE NOCASE,
    teacher TEXT COLLATE NOCASE,
    notes TEXT COLLATE NOCASE,
    custom1 TEXT COLLATE NOCASE,
    custom2 TEXT COLLATE NOCASE,
    custom3 TEXT COLLATE NOCASE,
    custom4 TEXT COLLATE NOCASE,
    group_id1 TEXT COLLATE NOCASE,
    group_id2 TEXT COLLATE NOCASE,
    group_id3 TEXT COLLATE NOCASE,
    group_id4 TEXT COLLATE NOCASE,
    group_id5 TEXT COLLATE NOCASE,
    group_id6 TEXT COLLATE NOCASE,
    group_id7 TEXT COLLATE NOCASE,
    group_id8 TEXT COLLATE NOCASE,
    registered INTEGER,
    txnid TEXT COLLATE NOCASE
);
CREATE UNIQUE INDEX pk_competitors ON competitors(competition_id, competitor_id);

CREATE TABLE competitor_groups (
    competition_id NUMERIC,
    competitor_id NUMERIC,
    group_id TEXT COLLATE NOCASE
);
CREATE INDEX ix_competitor_groups ON competitor_groups(competition_id, group_id, competitor_id);
CREATE INDEX ix_competitor_groups_dancer ON competitor_groups(competition_id, competitor_id);

CREATE TABLE comp_judges_results (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    competitor_id NUMERIC,
    points_awarded1 NUMERIC DEFAULT NULL,
    orderby REAL
);
CREATE INDEX ix_comp_judges_results ON comp_judges_results(competition_id, group_id, dance_id, competitor_id);

CREATE TABLE judges_results (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    competitor_id NUMERIC,
    points_awarded1 NUMERIC DEFAULT NULL,
    points_awarded2 NUMERIC DEFAULT NULL,
    points_awarded3 NUMERIC DEFAULT NULL,
    orderby REAL
);
CREATE INDEX ix_judges_results ON judges_results(competition_id, group_id, dance_id, competitor_id);

CREATE TABLE judges_results_judges (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    result_no NUMERIC,
    judge_id NUMERIC
);
CREATE INDEX ix_judges_results_judges ON judges_results_judges(competition_id, group_id, dance_id);

CREATE TABLE dance_results (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    result_no NUMERIC,
    competitor_id NUMERIC,
    points NUMERIC,
    placing NUMERIC
);
CREATE INDEX ix_dance_results ON dance_results(competition_id, group_id, dance_id);

CREATE TABLE overall_dance_results (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    competitor_id NUMERIC,
    points NUMERIC,
    total_dance_points NUMERIC,
    placing NUMERIC,
    tie TEXT COLLATE NOCASE
);
CREATE INDEX ix_overall_dance_results ON overall_dance_results(competition_id, group_id, dance_id);

CREATE TABLE overall_results (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    competitor_id NUMERIC,
    points NUMERIC,
    dance_points NUMERIC,
    placing NUMERIC,
    tie TEXT COLLATE NOCASE
);
CREATE INDEX ix_overall_results ON overall_results(competition_id, group_id);

CREATE TABLE highland_results (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    competitor_id NUMERIC,
    points NUMERIC,
    dance_points NUMERIC,
    placing NUMERIC,
    tie TEXT COLLATE NOCASE,
    total_dance_points NUMERIC,
    no_firsts NUMERIC,
    no_prizes NUMERIC,
    tied NUMERIC
);
CREATE INDEX ix_highland_results ON highland_results(competition_id, group_id);

CREATE TABLE national_results (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    competitor_id NUMERIC,
    points NUMERIC,
    dance_points NUMERIC,
    placing NUMERIC,
    tie TEXT COLLATE NOCASE
);
CREATE INDEX ix_national_results ON national_results(competition_id, group_id);

CREATE TABLE tie_break (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    competitor_id NUMERIC,
    placing NUMERIC,
    no_firsts NUMERIC,
    no_prizes NUMERIC,
    dance_points NUMERIC
);

CREATE TABLE dance_no_prizes (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    no_prizes NUMERIC,
    auto TEXT COLLATE NOCASE,
    CONSTRAINT pk_dance_no_prizes PRIMARY KEY (competition_id, group_id, dance_id)
);

CREATE TABLE dance_no_dancers (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    CONSTRAINT pk_dance_no_d PRIMARY KEY (competition_id, group_id, dance_id)
);

CREATE TABLE championship_dance_names (
    competition_id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    dance_id NUMERIC,
    name TEXT COLLATE NOCASE,
    CONSTRAINT pk_championship_dance_names PRIMARY KEY (competition_id, group_id, dance_id)
);

CREATE TABLE custom_reports (
    competition_id NUMERIC,
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT COLLATE NOCASE
);
CREATE UNIQUE INDEX pk_custom_reports ON custom_reports(competition_id, id);

CREATE TABLE custom_reports_dances (
    id NUMERIC,
    dance_id NUMERIC,
    CONSTRAINT pk_custom_dances PRIMARY KEY (id, dance_id)
);

CREATE TABLE custom_reports_groups (
    id NUMERIC,
    group_id TEXT COLLATE NOCASE,
    CONSTRAINT pk_custom_groups PRIMARY KEY (id, group_id)
);

CREATE TABLE custom_reports_fields (
    id NUMERIC,
    fvalue TEXT COLLATE NOCASE,
    CONSTRAINT pk_custom_fields PRIMARY KEY (id, fvalue)
);

CREATE TABLE system_settings (
    judges_points NUMERIC DEFAULT 0,
    check_mode INTEGER,
    check_dir TEXT COLLATE NOCASE,
    show_address INTEGER,
    auto_save INTEGER,
    judges_order INTEGER,
    locale INTEGER
);

CREATE TABLE system_no_prizes (
    min_no NUMERIC,
    max_no NUMERIC,
    no_prizes NUMERIC
);

CREATE TABLE db_info (
    db_version TEXT COLLATE NOCASE,
    last_update DATETIME
);
