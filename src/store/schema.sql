-- Tables of a Lapkeeper data file. Keys stand where a row is identified; no foreign keys and
-- no NOT NULL, so that the engine never refuses a delete or silently skips a row.
-- Dates are ISO text (yyyy-MM-dd); money is a plain number.

CREATE TABLE leagues (
  league_nmbr INTEGER PRIMARY KEY,
  league_name TEXT,
  league_short_name TEXT,
  race_type_nmbr INTEGER,
  scoring_option_nmbr INTEGER,
  scoring_type_nmbr INTEGER,
  salary_cap REAL,
  drop_lowest INTEGER,
  car_type_nmbr INTEGER
);
CREATE INDEX leagues_by_race_type ON leagues (race_type_nmbr);

CREATE TABLE league_teams (
  league_nmbr INTEGER,
  team_nmbr INTEGER,
  PRIMARY KEY (league_nmbr, team_nmbr)
);
CREATE INDEX league_teams_by_team ON league_teams (team_nmbr);

CREATE TABLE teams (
  team_nmbr INTEGER PRIMARY KEY,
  team_name TEXT,
  team_owner TEXT,
  email TEXT,
  phone TEXT,
  race_type_nmbr INTEGER,
  car_type_nmbr INTEGER,
  address_line1 TEXT,
  address_line2 TEXT,
  city TEXT,
  state TEXT,
  zip TEXT
);

CREATE TABLE cars (
  car_nmbr INTEGER PRIMARY KEY,
  car_txt TEXT,
  car_owner TEXT,
  car_make TEXT,
  sponsor TEXT,
  driver_name TEXT,
  race_type_nmbr INTEGER,
  car_type_nmbr INTEGER,
  group_nmbr INTEGER,
  salary REAL
);
CREATE INDEX cars_by_type ON cars (race_type_nmbr, car_type_nmbr);

CREATE TABLE team_car (
  team_nmbr INTEGER,
  car_nmbr INTEGER,
  efctv_dt TEXT,
  term_dt TEXT,
  price REAL,
  locked_salary REAL,
  active INTEGER,
  PRIMARY KEY (team_nmbr, car_nmbr, efctv_dt)
);
CREATE INDEX team_car_by_car ON team_car (car_nmbr, efctv_dt);

CREATE TABLE races (
  race_nmbr INTEGER PRIMARY KEY,
  race_name TEXT,
  track_name TEXT,
  race_dt TEXT,
  race_type_nmbr INTEGER,
  car_type_nmbr INTEGER,
  race_status_nmbr INTEGER
);
CREATE INDEX races_by_type_date ON races (race_type_nmbr, race_dt);
CREATE INDEX races_by_date ON races (race_dt);

CREATE TABLE results (
  race_nmbr INTEGER,
  car_nmbr INTEGER,
  place INTEGER,
  qualified INTEGER,
  fast_qual INTEGER,
  laps_led INTEGER,
  adjustment INTEGER,
  PRIMARY KEY (race_nmbr, car_nmbr)
);
CREATE INDEX results_by_car ON results (car_nmbr);

-- No key here: a team's top bonus entry can have two rows in one race.
CREATE TABLE team_results (
  race_nmbr INTEGER,
  league_nmbr INTEGER,
  team_nmbr INTEGER,
  car_nmbr INTEGER,
  place INTEGER,
  qualified INTEGER,
  current_status INTEGER,
  fast_qual_bonus INTEGER,
  laps_led_bonus INTEGER,
  most_laps_led_bonus INTEGER,
  adjustment INTEGER,
  points INTEGER,
  qual_points INTEGER,
  total_points INTEGER
);
CREATE INDEX team_results_by_race ON team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr);
-- Led by the team, so that a look-up by league alone goes through the races of the league's
-- type (team_results_by_race) instead of every row the league ever scored.
CREATE INDEX team_results_by_team ON team_results (team_nmbr, league_nmbr, race_nmbr);
CREATE INDEX team_results_by_car ON team_results (car_nmbr);

CREATE TABLE team_results_summary (
  race_nmbr INTEGER,
  league_nmbr INTEGER,
  team_nmbr INTEGER,
  points INTEGER,
  team_place INTEGER,
  PRIMARY KEY (race_nmbr, league_nmbr, team_nmbr)
);
CREATE INDEX team_results_summary_by_team ON team_results_summary (league_nmbr, team_nmbr);

CREATE TABLE race_head_head (
  race_nmbr INTEGER,
  league_nmbr INTEGER,
  team_nmbr1 INTEGER,
  team_nmbr2 INTEGER,
  PRIMARY KEY (race_nmbr, league_nmbr, team_nmbr1, team_nmbr2)
);

CREATE TABLE scoring_type (
  scoring_type_nmbr INTEGER PRIMARY KEY,
  scoring_type_name TEXT,
  laps_led_bonus INTEGER,
  most_laps_led_bonus INTEGER,
  fast_qual_bonus INTEGER
);

CREATE TABLE scoring_points (
  scoring_type_nmbr INTEGER,
  place INTEGER,
  points INTEGER,
  qual_points INTEGER,
  PRIMARY KEY (scoring_type_nmbr, place)
);

CREATE TABLE scoring_top_points (
  scoring_type_nmbr INTEGER,
  nmbr_cars INTEGER,
  points INTEGER,
  top_nmbr INTEGER
);
CREATE INDEX scoring_top_points_by_type ON scoring_top_points (scoring_type_nmbr);

CREATE TABLE race_type_dm (
  race_type_nmbr INTEGER PRIMARY KEY,
  race_type_name TEXT
);

CREATE TABLE group_dm (
  group_nmbr INTEGER PRIMARY KEY,
  group_name TEXT,
  max_nmbr INTEGER
);

CREATE TABLE car_type_dm (
  car_type_nmbr INTEGER PRIMARY KEY,
  car_type_name TEXT
);

CREATE TABLE scoring_option_dm (
  scoring_option_nmbr INTEGER PRIMARY KEY,
  scoring_option_name TEXT
);

CREATE TABLE race_status_dm (
  race_status_nmbr INTEGER PRIMARY KEY,
  race_status_name TEXT
);

CREATE TABLE color_dm (
  color_nmbr INTEGER PRIMARY KEY,
  color_name TEXT,
  color_cd TEXT
);

CREATE TABLE column_dm (
  column_nmbr INTEGER PRIMARY KEY,
  column_name TEXT
);

CREATE TABLE attribute_dm (
  attribute_nmbr INTEGER PRIMARY KEY,
  attribute_name TEXT
);

CREATE TABLE report (
  report_nmbr INTEGER PRIMARY KEY,
  report_id TEXT,
  report_name TEXT,
  file_handle INTEGER
);
CREATE INDEX report_by_id ON report (report_id);

CREATE TABLE available_report_columns (
  report_nmbr INTEGER,
  column_nmbr INTEGER,
  PRIMARY KEY (report_nmbr, column_nmbr)
);

CREATE TABLE report_columns (
  report_nmbr INTEGER,
  column_nmbr INTEGER,
  column_order INTEGER
);
CREATE INDEX report_columns_by_report ON report_columns (report_nmbr, column_order);

-- Two rows of one attribute may exist; the first read wins.
CREATE TABLE report_attributes (
  report_nmbr INTEGER,
  attribute_nmbr INTEGER,
  amt INTEGER,
  string_value TEXT
);
CREATE INDEX report_attributes_by_report ON report_attributes (report_nmbr, attribute_nmbr);

CREATE TABLE publish (
  location TEXT,
  username TEXT,
  password TEXT
);
