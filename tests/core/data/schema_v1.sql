-- A database file as the first version of the program made it: no db_version,
-- none of the tables and columns that later versions added. The old orderby
-- columns of the mark tables had another type.
CREATE TABLE competitions (competition_id INTEGER PRIMARY KEY, competition_name TEXT COLLATE NOCASE, competition_date TEXT COLLATE NOCASE);
CREATE TABLE categories (competition_id NUMERIC, category_id TEXT COLLATE NOCASE, category TEXT COLLATE NOCASE);
CREATE UNIQUE INDEX pk_categories ON categories(competition_id, category_id);
CREATE TABLE dances (dance_id INTEGER PRIMARY KEY, dance TEXT COLLATE NOCASE);
CREATE TABLE category_dances (competition_id NUMERIC, category_id TEXT COLLATE NOCASE, dance_id NUMERIC);
CREATE TABLE age_groups (group_id INTEGER PRIMARY KEY, competition_id NUMERIC, competition_group_id TEXT COLLATE NOCASE, age_group TEXT COLLATE NOCASE, category TEXT COLLATE NOCASE, dance_section TEXT COLLATE NOCASE, no_prizes NUMERIC, split_overalls TEXT COLLATE NOCASE);
CREATE UNIQUE INDEX pk_age_groups_code ON age_groups(competition_id, competition_group_id);
CREATE TABLE judges (judge_id INTEGER PRIMARY KEY, competition_id NUMERIC, forename TEXT COLLATE NOCASE, surname TEXT COLLATE NOCASE);
CREATE TABLE competitors (competition_id NUMERIC, competitor_id NUMERIC, forename TEXT COLLATE NOCASE, surname TEXT COLLATE NOCASE, age NUMERIC, town TEXT COLLATE NOCASE, fee NUMERIC, date_received TEXT COLLATE NOCASE, group_id1 TEXT COLLATE NOCASE, group_id2 TEXT COLLATE NOCASE, group_id3 TEXT COLLATE NOCASE, group_id4 TEXT COLLATE NOCASE, group_id5 TEXT COLLATE NOCASE, group_id6 TEXT COLLATE NOCASE, group_id7 TEXT COLLATE NOCASE, group_id8 TEXT COLLATE NOCASE);
CREATE UNIQUE INDEX pk_competitors ON competitors(competition_id, competitor_id);
CREATE TABLE competitor_groups (competition_id NUMERIC, competitor_id NUMERIC, group_id TEXT COLLATE NOCASE);
CREATE TABLE comp_judges_results (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC, competitor_id NUMERIC, points_awarded1 NUMERIC DEFAULT 0, orderby INTEGER);
CREATE INDEX ix_comp_judges_results ON comp_judges_results(competition_id, group_id, dance_id, competitor_id);
CREATE TABLE judges_results (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC, competitor_id NUMERIC, points_awarded1 NUMERIC DEFAULT 0, points_awarded2 NUMERIC DEFAULT 0, points_awarded3 NUMERIC DEFAULT 0, orderby INTEGER);
CREATE INDEX ix_judges_results_order ON judges_results(orderby);
CREATE TABLE judges_results_judges (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC, result_no NUMERIC, judge_id NUMERIC);
CREATE TABLE dance_results (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC, result_no NUMERIC, competitor_id NUMERIC, points NUMERIC, placing NUMERIC);
CREATE TABLE overall_dance_results (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, dance_id NUMERIC, competitor_id NUMERIC, points NUMERIC, total_dance_points NUMERIC, placing NUMERIC, tie TEXT COLLATE NOCASE);
CREATE TABLE overall_results (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, competitor_id NUMERIC, points NUMERIC, dance_points NUMERIC, placing NUMERIC, tie TEXT COLLATE NOCASE);
CREATE TABLE highland_results (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, competitor_id NUMERIC, points NUMERIC, dance_points NUMERIC, placing NUMERIC, tie TEXT COLLATE NOCASE, total_dance_points NUMERIC, no_firsts NUMERIC, no_prizes NUMERIC, tied NUMERIC);
CREATE TABLE national_results (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, competitor_id NUMERIC, points NUMERIC, dance_points NUMERIC, placing NUMERIC, tie TEXT COLLATE NOCASE);
CREATE TABLE tie_break (competition_id NUMERIC, group_id TEXT COLLATE NOCASE, competitor_id NUMERIC, placing NUMERIC, no_firsts NUMERIC, no_prizes NUMERIC, dance_points NUMERIC);
CREATE TABLE system_no_prizes (min_no NUMERIC, max_no NUMERIC, no_prizes NUMERIC);
CREATE TABLE db_info (made_by TEXT COLLATE NOCASE);
INSERT INTO db_info(made_by) VALUES ('first version');
INSERT INTO competitions(competition_id, competition_name, competition_date) VALUES (1, 'Braemar', '01/09/2001');
INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id, points_awarded1, points_awarded2, points_awarded3, orderby) VALUES (1, 'U12', 1, 101, 87, 85, 80, 3);
