-- Report tables of a new data file: reports, columns, default choices and look.

-- One row per report. Each report writes through its own channel, so a report run inside another
-- (a team page inside the standings, any report inside the package) keeps its file apart.
INSERT INTO report (report_nmbr, report_id, report_name, file_handle) VALUES
  (1, 'RD', 'Race Detail', 1),
  (2, 'LS', 'League Standings', 2),
  (3, 'TC', 'Team Cars', 3),
  (4, 'LR', 'League Race Summary', 4),
  (5, 'TD', 'Team Detail', 5),
  (6, 'RS', 'League Race Standings', 6),
  (7, 'TR', 'Team Race Detail', 7),
  (8, 'CD', 'Car Details', 8),
  (9, 'RR', 'Race Results', 9),
  (10, 'DS', 'Car/Driver Stats', 10),
  (11, 'TT', 'Team Trades', 11),
  (12, 'CP', 'Car/Driver Picks', 12),
  (13, 'DT', 'Teams per Car/Driver', 13),
  (14, 'RP', 'Report Package', 14);

-- Column names as the report details screen shows them. A number means the same value in every
-- report that knows it; 38 and 39 print no cell but add e-mail and phone to a team's heading.
-- 100 to 111 are the reports that the package can run, in the package's "columns".
INSERT INTO column_dm (column_nmbr, column_name) VALUES
  (1, 'Finish Position'),
  (2, 'Car Number'),
  (3, 'Driver Name'),
  (4, 'Sponsor'),
  (5, 'Stop Date'),
  (6, 'Laps Led Bonus'),
  (7, 'Most Laps Led Bonus'),
  (8, 'Race Points'),
  (9, 'Season Points'),
  (10, 'Start Date'),
  (11, 'Locked Salary'),
  (12, 'Current Salary'),
  (13, 'Team Place'),
  (14, 'Previous Place'),
  (15, 'Team Wins'),
  (16, 'Team Top 5s'),
  (17, 'Team Top 10s'),
  (18, 'Car/Driver Wins'),
  (19, 'Car/Driver Top 5s'),
  (20, 'Car/Driver Top 10s'),
  (21, 'Points Last Race'),
  (22, 'Points Out of Lead'),
  (23, 'Car Make'),
  (24, 'Car Owner'),
  (25, 'Start Position'),
  (26, 'Laps Led'),
  (27, 'Fast Qualifier'),
  (28, 'Starts'),
  (29, 'Poles'),
  (30, 'Average Finish'),
  (31, 'Fast Qualifier Bonus'),
  (32, 'Qualifying Bonus'),
  (33, 'Team Name'),
  (34, 'Team Owner'),
  (35, 'Adjustment'),
  (36, 'Average Start'),
  (37, 'Total Laps Led'),
  (38, 'Team E-mail'),
  (39, 'Team Phone'),
  (40, 'Group'),
  (100, 'Race Detail'),
  (101, 'League Race Summary'),
  (102, 'League Race Standings'),
  (103, 'League Standings'),
  (104, 'Team Detail'),
  (105, 'Team Cars'),
  (106, 'Car Details'),
  (107, 'Race Results'),
  (108, 'Car/Driver Stats'),
  (109, 'Team Trades'),
  (110, 'Car/Driver Picks'),
  (111, 'Teams per Car/Driver');

-- What each report can show. League Race Summary has none: its columns are the races.
INSERT INTO available_report_columns (report_nmbr, column_nmbr) VALUES
  -- Race Detail
  (1, 1), (1, 2), (1, 3), (1, 4), (1, 5), (1, 6), (1, 7), (1, 8), (1, 9), (1, 10), (1, 31), (1, 32), (1, 35),
  -- League Standings
  (2, 9), (2, 13), (2, 14), (2, 15), (2, 16), (2, 17), (2, 18), (2, 19), (2, 20), (2, 21), (2, 22), (2, 33), (2, 34),
  -- Team Cars
  (3, 2), (3, 3), (3, 5), (3, 10), (3, 11), (3, 12), (3, 38), (3, 39), (3, 40),
  -- Team Detail
  (5, 2), (5, 3), (5, 4), (5, 5), (5, 6), (5, 7), (5, 9), (5, 21), (5, 22), (5, 31), (5, 32), (5, 35), (5, 38), (5, 39),
  -- League Race Standings
  (6, 6), (6, 7), (6, 8), (6, 13), (6, 31), (6, 32), (6, 33), (6, 35),
  -- Team Race Detail: the columns of Race Detail
  (7, 1), (7, 2), (7, 3), (7, 4), (7, 5), (7, 6), (7, 7), (7, 8), (7, 9), (7, 10), (7, 31), (7, 32), (7, 35),
  -- Car Details
  (8, 2), (8, 3), (8, 4), (8, 12), (8, 23), (8, 24), (8, 40),
  -- Race Results
  (9, 1), (9, 2), (9, 3), (9, 4), (9, 25), (9, 26), (9, 27),
  -- Car/Driver Stats
  (10, 2), (10, 3), (10, 18), (10, 19), (10, 20), (10, 28), (10, 29), (10, 30), (10, 36), (10, 37),
  -- Team Trades: the roster columns of Team Cars, with the same team heading lines
  (11, 2), (11, 3), (11, 5), (11, 10), (11, 11), (11, 12), (11, 38), (11, 39), (11, 40),
  -- Car/Driver Picks: as Car Details, without the group (the rows are grouped already)
  (12, 2), (12, 3), (12, 4), (12, 12), (12, 23), (12, 24),
  -- Teams per Car/Driver
  (13, 5), (13, 10), (13, 11), (13, 12), (13, 33), (13, 34), (13, 40),
  -- Report Package: the reports it can run
  (14, 100), (14, 101), (14, 102), (14, 103), (14, 104), (14, 105), (14, 106), (14, 107), (14, 108), (14, 109),
  (14, 110), (14, 111);

-- The default choice and order: who or what the row is, then the results, then the totals.
-- Race Detail and Team Race Detail leave out Adjustment, which their total row has no cell for;
-- the team reports leave out e-mail and phone, which would be published on the web.
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES
  -- Race Detail
  (1, 2, 1), (1, 3, 2), (1, 1, 3), (1, 6, 4), (1, 7, 5), (1, 31, 6), (1, 32, 7), (1, 8, 8), (1, 9, 9),
  -- League Standings
  (2, 13, 1), (2, 33, 2), (2, 34, 3), (2, 14, 4), (2, 15, 5), (2, 16, 6), (2, 17, 7), (2, 21, 8), (2, 9, 9),
  (2, 22, 10),
  -- Team Cars
  (3, 2, 1), (3, 3, 2), (3, 40, 3), (3, 10, 4), (3, 5, 5), (3, 11, 6), (3, 12, 7),
  -- Team Detail
  (5, 2, 1), (5, 3, 2), (5, 5, 3), (5, 6, 4), (5, 7, 5), (5, 31, 6), (5, 32, 7), (5, 21, 8), (5, 9, 9), (5, 22, 10),
  -- League Race Standings
  (6, 13, 1), (6, 33, 2), (6, 6, 3), (6, 7, 4), (6, 31, 5), (6, 32, 6), (6, 8, 7),
  -- Team Race Detail
  (7, 2, 1), (7, 3, 2), (7, 1, 3), (7, 6, 4), (7, 7, 5), (7, 31, 6), (7, 32, 7), (7, 8, 8), (7, 9, 9),
  -- Car Details
  (8, 2, 1), (8, 3, 2), (8, 4, 3), (8, 23, 4), (8, 24, 5), (8, 40, 6), (8, 12, 7),
  -- Race Results: the finishing order leads
  (9, 1, 1), (9, 2, 2), (9, 3, 3), (9, 4, 4), (9, 25, 5), (9, 26, 6), (9, 27, 7),
  -- Car/Driver Stats
  (10, 2, 1), (10, 3, 2), (10, 28, 3), (10, 29, 4), (10, 18, 5), (10, 19, 6), (10, 20, 7), (10, 30, 8),
  (10, 36, 9), (10, 37, 10),
  -- Team Trades
  (11, 2, 1), (11, 3, 2), (11, 40, 3), (11, 10, 4), (11, 5, 5), (11, 11, 6), (11, 12, 7),
  -- Car/Driver Picks
  (12, 2, 1), (12, 3, 2), (12, 4, 3), (12, 23, 4), (12, 12, 5),
  -- Teams per Car/Driver
  (13, 33, 1), (13, 34, 2), (13, 10, 3), (13, 5, 4), (13, 11, 5), (13, 12, 6),
  -- Report Package: the standings and race pages first, then the team and car pages
  (14, 103, 1), (14, 102, 2), (14, 100, 3), (14, 101, 4), (14, 104, 5), (14, 105, 6), (14, 109, 7),
  (14, 107, 8), (14, 108, 9);

-- One look for every report (colour numbers of color_dm): navy on light blue headings, black rows
-- on white and light gray, navy titles on a white page, cells set apart by thin white gaps, no
-- images, with the footer.
-- Light blue headings keep the links readable where a heading cell holds one.
WITH theme (attribute_nmbr, amt) AS (VALUES
  (1, 5),    -- heading text: Navy
  (2, 7),    -- heading back: Light Blue
  (3, 1),    -- odd row text: Black
  (4, 2),    -- odd row back: White
  (5, 1),    -- even row text: Black
  (6, 20),   -- even row back: Light Gray
  (7, 5),    -- title text: Navy
  (8, 2),    -- page back: White
  (9, 0),    -- border size: none; a thin white gap between cells instead
  (10, 1),   -- cell spacing
  (11, 4),   -- cell padding
  (12, 2),   -- heading text size
  (13, 2),   -- odd row text size
  (14, 2),   -- even row text size
  (15, 6),   -- title text size: 6 leaves the team headings of the team pages (4 less) readable
  (16, 6),   -- link: Blue
  (17, 17),  -- visited link: Purple
  (18, 4),   -- hover link: Maroon
  (19, NULL), -- header image: none
  (20, NULL), -- background image: none
  (21, 0),   -- include active only
  (22, 1))   -- include footer
INSERT INTO report_attributes (report_nmbr, attribute_nmbr, amt, string_value)
  SELECT report.report_nmbr, theme.attribute_nmbr, theme.amt, NULL
    FROM report, theme
   ORDER BY report.report_nmbr, theme.attribute_nmbr;

-- Team Cars and Teams per Car/Driver are titled "as of" a race: by default they show only the
-- roster entries in force on that race's date (and Team Cars then totals the salaries in force).
UPDATE report_attributes SET amt = 1
 WHERE attribute_nmbr = 21
   AND report_nmbr IN (SELECT report_nmbr FROM report WHERE report_id IN ('TC', 'DT'));
