-- A team that joined for the last race only, with 12 points there and no roster entries left:
-- it has no points in the races before, and its Team Cars page is empty.
INSERT INTO teams (team_nmbr, team_name, team_owner) VALUES (600, 'Late Starters', 'Owner of Late Starters');
INSERT INTO league_teams VALUES (500, 600);
INSERT INTO team_results (race_nmbr, league_nmbr, team_nmbr, car_nmbr, place, current_status, points, total_points)
  VALUES (503, 500, 600, 0, 0, 1, 12, 12);
INSERT INTO team_results_summary VALUES (503, 500, 600, 12, 4);
