-- Green Flags dropped car 24 on the day of the second race, which still counts as held that day;
-- car 48 came later. Blue Comets held car 2 in the winter as well, with a locked salary, and car 6
-- has one of its own. Car 11 is of Group B.
UPDATE team_car SET term_dt = '2026-03-08' WHERE car_nmbr IN (SELECT car_nmbr FROM cars WHERE car_txt = '24');
INSERT INTO team_car (team_nmbr, car_nmbr, efctv_dt, term_dt, price, locked_salary, active)
  SELECT teams.team_nmbr, cars.car_nmbr, '2025-12-01', '2026-02-01', 0, 900, 1
    FROM teams, cars WHERE teams.team_name = 'Blue Comets' AND cars.car_txt = '2';
UPDATE team_car SET locked_salary = 1100.25 WHERE car_nmbr IN (SELECT car_nmbr FROM cars WHERE car_txt = '6');
UPDATE cars SET group_nmbr = 2 WHERE car_txt = '11';
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES (13, 40, 7);
