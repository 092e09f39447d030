-- Red Arrows take on car 24 after Green Flags let it go, and let it go again before the race:
-- one entry that began and ended between the two races. The teams' e-mail and phone show.
INSERT INTO team_car SELECT 500, car_nmbr, '2026-03-12', '2026-03-20', 0, 650, 1 FROM cars WHERE car_txt = '24';
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES (11, 38, 8), (11, 39, 9);
